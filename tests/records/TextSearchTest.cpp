#include "VantryCore/records/TextSearch.h"

#include <array>
#include <memory>
#include <random>
#include <string>

#include <gtest/gtest.h>
#include <unicode/stsearch.h>
#include <unicode/tblcoll.h>
#include <unicode/unistr.h>

namespace vantry::test {
namespace {

bool found(const char* query, const char* text) {
    return TextQuery(query).isIn(text);
}

TEST(TextSearch, PassesOverCaseMarksAndWidth) {
    EXPECT_TRUE(found("window", "The WINDOW turn"));
    EXPECT_TRUE(found("eglise", "Rue de l'Église"));
    EXPECT_TRUE(found("É", "e\xCC\x81tude")) << "a letter and its mark, in one or in two";
    EXPECT_TRUE(found("ABC12", "ａｂｃ１２")) << "full width";
    EXPECT_TRUE(found("Ｔake", "take 3"));
    EXPECT_TRUE(found("strasse", "STRAẞE"));
    EXPECT_TRUE(found("ｶﾞ", "ガ")) << "half width with its mark";
    EXPECT_TRUE(found("a　b", "A B")) << "an ideographic blank is a wide blank";
}

TEST(TextSearch, TellsDifferentLettersApart) {
    EXPECT_FALSE(found("windows", "window"));
    EXPECT_FALSE(found("夜航", "夜戏"));
    EXPECT_TRUE(found("夜", "码头夜戏"));
    EXPECT_FALSE(found("①", "1")) << "other compatibility forms are other characters";
    EXPECT_TRUE(found("🌧", "雨中奔跑 🌧"));
}

TEST(TextSearch, AnEmptyQueryIsInEverythingAndMarksAloneAreNowhere) {
    EXPECT_TRUE(found("", ""));
    EXPECT_TRUE(found("", "x"));
    EXPECT_FALSE(found("x", ""));
    EXPECT_FALSE(found("\xCC\x81", "e\xCC\x81"));
    EXPECT_FALSE(found("\xCC\x81", ""));
}

TEST(TextSearch, DamagedBytesAreNoneOfTheText) {
    EXPECT_FALSE(found("a", "\xFF\xFE"));
    EXPECT_TRUE(found("a", "\xFFzA\xC3"));
}

/// What the collation of the root locale finds at its first level, where only letters count.
bool foundByCollation(const std::string& query, const std::string& text) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(
        icu::Collator::createInstance(icu::Locale::getRoot(), status));
    collator->setStrength(icu::Collator::PRIMARY);
    icu::StringSearch search(icu::UnicodeString::fromUTF8(query), icu::UnicodeString::fromUTF8(text),
                             dynamic_cast<icu::RuleBasedCollator*>(collator.get()), nullptr, status);
    return search.first(status) != USEARCH_DONE && U_SUCCESS(status);
}

TEST(TextSearch, FindsWhatCollationFinds) {
    // Letters that stand for themselves in both ways of looking.
    constexpr std::array<const char*, 12> pieces{"a",  "A",  "é", "E",  "ａ", "b",
                                                 "夜", "航", "1", "１", "o",  "Ö"};
    std::mt19937 random(20261121);
    const auto text = [&](std::size_t length) {
        std::string made;
        for (std::size_t at = 0; at < length; ++at)
            made += pieces.at(random() % pieces.size());
        return made;
    };
    int hits = 0;
    for (int round = 0; round < 2000; ++round) {
        const std::string query = text(1 + random() % 2);
        const std::string field = text(random() % 8);
        const bool isFound = TextQuery(query).isIn(field);
        EXPECT_EQ(isFound, foundByCollation(query, field)) << query << " in " << field;
        hits += isFound ? 1 : 0;
    }
    EXPECT_GT(hits, 200);
    EXPECT_LT(hits, 1800);
}

}  // namespace
}  // namespace vantry::test
