#include <set>

#include <gtest/gtest.h>

#include "VantryCore/persistence/LibraryValidation.h"
#include "VantryCore/persistence/VantryError.h"
#include "VantryCore/records/Identifiers.h"
#include "tests/support/RandomEdits.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

bool passes(const Library& library) {
    try {
        validate(library);
    } catch (const VantryError&) {
        return false;
    }
    return true;
}

bool accepts(KnownValid& known, const Library& library) {
    try {
        known.accept(library);
    } catch (const VantryError&) {
        return false;
    }
    return true;
}

bool passesAfter(const Library& library, const Library& valid) {
    KnownValid known;
    known.accept(valid);
    return accepts(known, library);
}

TEST(ValidationOfDifferences, AcceptsAndRefusesWhatTheFullOneDoes) {
    int accepted = 0;
    int refused = 0;
    for (std::uint64_t seed = 0; seed < 400; ++seed) {
        support::RandomRecords random(seed);
        Library library = random.validLibrary();
        KnownValid known;
        known.accept(library);
        for (int step = 0; step < 30; ++step) {
            for (auto edits = random.number(1, 3); edits > 0; --edits)
                support::editFreely(library, random);
            const bool expected = passes(library);
            ASSERT_EQ(accepts(known, library), expected) << "seed " << seed << " step " << step;
            (expected ? accepted : refused) += 1;
            // As a save does; a library that failed may stand.
            if (!expected && random.chance(0.7))
                library = known.library();
        }
    }
    EXPECT_GT(accepted, 1000);
    EXPECT_GT(refused, 1000);
}

TEST(ValidationOfDifferences, StartsFromAnyValidLibraryWhatever) {
    for (std::uint64_t seed = 0; seed < 200; ++seed) {
        support::RandomRecords random(seed);
        const Library valid = random.validLibrary();
        Library other = random.chance(0.5) ? random.validLibrary() : valid;
        if (random.chance(0.5))
            support::editFreely(other, random);
        ASSERT_EQ(passesAfter(other, valid), passes(other)) << seed;
    }
}

TEST(ValidationOfDifferences, SeesAnIdentifierThatMovedIntoAnUnchangedPart) {
    // The same identifiers in the same number, but one shot now has that of a take in another act.
    Library valid = support::sampleLibrary();
    Library library = valid;
    const Identifier taken = library.projects[0]->acts[1]->shots[0]->takes[0]->id;
    library.projects[0].edit().acts[0].edit().shots[0].edit().id = taken;
    EXPECT_FALSE(passesAfter(library, valid));
    library = valid;
    std::swap(library.projects[0].edit().acts[0].edit().shots[0],
              library.projects[1].edit().acts[0].edit().shots[0]);
    EXPECT_TRUE(passesAfter(library, valid));
    library.projects[1].edit().acts[0].edit().shots[0] = library.projects[0]->acts[0]->shots[0];
    EXPECT_FALSE(passesAfter(library, valid));
}

TEST(ValidationOfDifferences, KnowsEveryIdentifierOfTheLastAcceptedLibraryAndNoOther) {
    for (std::uint64_t seed = 0; seed < 200; ++seed) {
        support::RandomRecords random(seed);
        KnownValid known;
        Library library = random.validLibrary();
        std::set<Identifier> ever;
        for (int step = 0; step < 20; ++step) {
            support::editFreely(library, random);
            if (!accepts(known, library))
                library = known.library();
            std::set<Identifier> now;
            for (const auto& project : known.library().projects)
                forEachIdentifier(*project, [&](const Identifier& id) { now.insert(id); });
            ever.insert(now.begin(), now.end());
            for (const auto& id : ever)
                ASSERT_EQ(known.uses(id), now.contains(id)) << "seed " << seed << " step " << step;
        }
    }
}

TEST(ValidationOfDifferences, SeesAChangeThatWasMadeInPlace) {
    Library library = support::completeLibrary();
    Library valid = library;
    library.projects[0].edit().acts[0].edit().shots[0].edit().takes[0].edit().stars = 6;
    EXPECT_FALSE(passesAfter(library, valid));
    library.projects[0].edit().acts[0].edit().shots[0].edit().takes[0].edit().stars = 5;
    EXPECT_TRUE(passesAfter(library, valid));
}

}  // namespace
}  // namespace vantry
