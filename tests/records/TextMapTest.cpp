#include "VantryCore/records/TextMap.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "tests/support/RandomRecords.h"

namespace vantry {
namespace {

std::vector<std::pair<std::string, std::string>> contentOf(const TextMap& map) {
    std::vector<std::pair<std::string, std::string>> content;
    for (const auto& [key, value] : map)
        content.emplace_back(key.utf8(), value.utf8());
    return content;
}

using Content = std::vector<std::pair<std::string, std::string>>;

TEST(TextMap, ReadsAMissingKeyAsTheEmptyText) {
    TextMap map;
    map.set("iso", "800");
    EXPECT_EQ(map["iso"].utf8(), "800");
    EXPECT_EQ(map["fps"].utf8(), "");
    EXPECT_EQ(map.find("fps"), nullptr);
    ASSERT_NE(map.find("iso"), nullptr);
}

TEST(TextMap, TellsAMissingKeyFromAnEmptyValue) {
    TextMap without;
    TextMap with;
    with.set("iso", "");
    EXPECT_EQ(with["iso"], without["iso"]);
    EXPECT_FALSE(with == without);
    EXPECT_FALSE(without == with);
    EXPECT_EQ(with.size(), 1U);
}

TEST(TextMap, TakesEquivalentKeysForOneAndKeepsTheLastSpelling) {
    TextMap map;
    map.set("caf\u00E9", "first");
    map.set("cafe\u0301", "second");
    EXPECT_EQ(contentOf(map), (Content{{"cafe\u0301", "second"}}));
    EXPECT_EQ(map["caf\u00E9"].utf8(), "second");
    map.set("caf\u00E9", "third");
    EXPECT_EQ(contentOf(map), (Content{{"caf\u00E9", "third"}}));
}

TEST(TextMap, FindsAnASCIIKeyByItsSingletonAndTheOtherWayRound) {
    TextMap map;
    map.set("K", "kelvin");
    EXPECT_EQ(map["\u212A"].utf8(), "kelvin");
    map.set("\u212A", "sign");
    EXPECT_EQ(contentOf(map), (Content{{"\u212A", "sign"}}));
    EXPECT_EQ(map["K"].utf8(), "sign");
    map.set("K", "letter");
    EXPECT_EQ(contentOf(map), (Content{{"K", "letter"}}));
    map.set(";", "a");
    map.set("\u037E", "b");
    EXPECT_EQ(map[";"].utf8(), "b");
    EXPECT_EQ(map.size(), 2U);
}

TEST(TextMap, EqualsAMapWithOtherSpellingsOfKeysAndValues) {
    TextMap a;
    a.set("K", "caf\u00E9");
    a.set("z", "1");
    TextMap b;
    b.set("z", "1");
    b.set("\u212A", "cafe\u0301");
    EXPECT_TRUE(a == b);
    EXPECT_TRUE(b == a);
    b.set("z", "2");
    EXPECT_FALSE(a == b);
    EXPECT_FALSE(b == a);
}

TEST(TextMap, DiffersWhenTheKeysDifferAlthoughTheCountIsTheSame) {
    TextMap a;
    a.set("a", "1");
    TextMap b;
    b.set("b", "1");
    TextMap c;
    c.set("\u00E9", "1");
    EXPECT_FALSE(a == b);
    EXPECT_FALSE(a == c);
    EXPECT_FALSE(c == a);
}

TEST(TextMap, GoesInTheOrderOfUnicodeScalarValues) {
    TextMap map;
    // In UTF-16 the last of these would stand before the one in front of it.
    const std::vector<std::string> ascending{"",  "A",      "B",      "a",      "aa",
                                             "b", "\u00E9", "\u96E8", "\uFF21", "\U0001F3AC"};
    for (auto key = ascending.rbegin(); key != ascending.rend(); ++key)
        map.set(Text(*key), Text(*key));
    std::vector<std::string> keys;
    for (const auto& entry : map)
        keys.push_back(entry.first.utf8());
    EXPECT_EQ(keys, ascending);
}

TEST(TextMap, IsAValueOfItsOwnAfterACopy) {
    TextMap a;
    a.set("iso", "800");
    TextMap b = a;
    b.set("iso", "1600");
    EXPECT_EQ(a["iso"].utf8(), "800");
    EXPECT_EQ(b["iso"].utf8(), "1600");
}

TEST(TextMap, MadeFromEntriesIsTheSameAsOneFilledStepByStep) {
    support::RandomRecords random(12);
    for (int round = 0; round < 2000; ++round) {
        std::vector<TextMap::Entry> entries;
        TextMap filled;
        for (auto left = random.number(0, 12); left > 0; --left) {
            const Text key(random.chance(0.3) ? std::string(1, static_cast<char>(random.number('a', 'c')))
                                              : random.text(2));
            entries.emplace_back(key, Text(random.text(2)));
            filled.set(key, entries.back().second);
        }
        if (random.chance(0.5)) {
            std::stable_sort(entries.begin(), entries.end(),
                             [](const auto& a, const auto& b) { return a.first.utf8() < b.first.utf8(); });
            filled = {};
            for (const auto& [key, value] : entries)
                filled.set(key, value);
        }
        const TextMap made(entries);
        ASSERT_EQ(contentOf(made), contentOf(filled)) << "round " << round;
        ASSERT_TRUE(made == filled) << "round " << round;
    }
}

TEST(TextMap, EqualsAnotherExactlyWhenAllEntriesAreEquivalent) {
    support::RandomRecords random(13);
    int equal = 0;
    for (int round = 0; round < 3000; ++round) {
        TextMap a;
        TextMap b;
        bool expected = true;
        for (auto left = random.number(0, 5); left > 0; --left) {
            const std::string key = random.text(2);
            const std::string value = random.text(2);
            a.set(Text(key), Text(value));
            b.set(Text(random.chance(0.5) ? composed(key) : key),
                  Text(random.chance(0.5) ? composed(value) : value));
        }
        if (random.chance(0.5)) {
            b.set(Text(random.text(2)), Text(random.text(1)));
            expected = a.size() == b.size() && std::all_of(a.begin(), a.end(), [&b](const auto& entry) {
                           const Text* other = b.find(entry.first.utf8());
                           return other != nullptr && *other == entry.second;
                       });
        }
        equal += expected ? 1 : 0;
        ASSERT_EQ(a == b, expected) << "round " << round;
        ASSERT_EQ(b == a, expected) << "round " << round;
    }
    EXPECT_GT(equal, 1000);
    EXPECT_LT(equal, 2900);
}

TEST(TextMap, TakesManyKeysOutsideASCIIQuickly) {
    std::vector<TextMap::Entry> entries;
    for (int i = 0; i < 200'000; ++i)
        entries.emplace_back(Text("\u96E8" + std::to_string(i % 100'000)), Text(std::to_string(i)));
    const TextMap map(std::move(entries));
    EXPECT_EQ(map.size(), 100'000U);
    EXPECT_EQ(map["\u96E8"
                  "7"],
              Text("100007"));
}

TEST(TextMap, BehavesLikeAListOfEntriesSearchedByEquivalence) {
    support::RandomRecords random(2);
    for (int round = 0; round < 400; ++round) {
        TextMap map;
        Content model;
        for (int step = 0; step < 25; ++step) {
            const std::string key = random.text(2);
            const std::string value = random.text(2);
            std::erase_if(model, [&](const auto& e) { return canonicallyEquivalent(e.first, key); });
            model.emplace_back(key, value);
            map.set(Text(key), Text(value));
        }
        std::sort(model.begin(), model.end());
        ASSERT_EQ(contentOf(map), model) << "round " << round;
        for (int probe = 0; probe < 10; ++probe) {
            const std::string key = random.text(2);
            const auto found = std::find_if(model.begin(), model.end(), [&](const auto& e) {
                return canonicallyEquivalent(e.first, key);
            });
            ASSERT_EQ(map.find(key) != nullptr, found != model.end()) << "round " << round;
            if (found != model.end()) {
                ASSERT_EQ(map[key].utf8(), found->second);
            }
        }
    }
}

}  // namespace
}  // namespace vantry
