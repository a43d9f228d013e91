#include <array>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/Merge.h"
#include "VantryCore/persistence/RecordValue.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/support/RandomChanges.h"
#include "tests/support/RandomEdits.h"

namespace vantry {
namespace {

/// What a value says without identity: equal for equal values.
std::string contentOf(const RecordValue& value);

std::string contentOf(const RecordValue::Object& object) {
    std::string content = "{";
    for (const auto& [key, member] : object) {
        content += composed(key.utf8()) + ":";
        const bool isSet = key == Text("acts") || key == Text("shots") || key == Text("takes");
        if (!isSet || member.array() == nullptr) {
            content += contentOf(member) + ",";
            continue;
        }
        // The order in which records came together is no content here, nor how often one is there.
        std::set<std::string> items;
        for (const auto& item : *member.array())
            items.insert(contentOf(item));
        for (const auto& item : items)
            content += item + ";";
    }
    return content + "}";
}

std::string contentOf(const RecordValue& value) {
    if (const auto* object = value.object())
        return contentOf(*object);
    if (const auto* array = value.array()) {
        std::string content = "[";
        for (const auto& item : *array)
            content += contentOf(item) + ",";
        return content + "]";
    }
    return composed(Codec::encode(value));
}

std::set<std::string> contentsOf(const Library& library) {
    std::set<std::string> contents;
    for (const auto& project : library.projects)
        contents.insert(contentOf(
            Codec::decode<RecordValue>(Codec::encode(Merge::comparableProject(*project))).withoutIdentity()));
    return contents;
}

using Machines = std::array<Library, 3>;

/// Everybody imports what each other one has, one after the other.
void exchangeInRound(Machines& machines) {
    for (std::size_t to = 0; to < machines.size(); ++to)
        for (std::size_t from = 0; from < machines.size(); ++from)
            if (from != to)
                (void)Merge::apply(support::unshared(machines[from]), machines[to]);
}

Machines afterEditsOnEach(support::RandomRecords& random) {
    Machines machines;
    machines.fill(support::crowdedLibrary(random));
    for (auto& library : machines)
        for (auto edits = random.number(0, 4); edits > 0; --edits)
            random.chance(0.5) ? support::changeAnywhere(library, random)
                               : support::editValidly(library, random);
    return machines;
}

TEST(MergeExchange, InRoundsBringsThreeMachinesToTheSameContents) {
    int refused = 0;
    int agreed = 0;
    for (std::uint64_t seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        support::RandomRecords random(seed);
        Machines machines = afterEditsOnEach(random);
        try {
            for (int round = 0; round < 3; ++round)
                exchangeInRound(machines);
        } catch (const VantryError&) {
            ++refused;
            continue;
        }
        const auto contents = contentsOf(machines[0]);
        ASSERT_TRUE(contentsOf(machines[1]) == contents);
        ASSERT_TRUE(contentsOf(machines[2]) == contents);
        ++agreed;
    }
    EXPECT_GT(agreed, 40);
    EXPECT_LT(refused, 20);
}

}  // namespace
}  // namespace vantry
