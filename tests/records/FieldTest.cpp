#include "VantryCore/records/Field.h"

#include <set>

#include <gtest/gtest.h>

#include "VantryCore/records/RelatedFile.h"
#include "VantryCore/records/Shot.h"
#include "tests/support/RecordTypes.h"

namespace vantry {
namespace {

class RecordEquality : public ::testing::TestWithParam<support::RecordType> {};

TEST_P(RecordEquality, HoldsForACopyAndForARecordMadeTheSameWay) {
    for (std::uint64_t seed = 0; seed < 50; ++seed)
        ASSERT_TRUE(GetParam().equalsItself(seed)) << seed;
}

TEST_P(RecordEquality, EndsWhenAnySingleFieldChanges) {
    for (std::uint64_t seed = 0; seed < 40; ++seed)
        for (const auto& field : GetParam().changedFields(seed)) {
            ASSERT_FALSE(field.equal) << field.name << " seed " << seed;
            ASSERT_TRUE(field.equalWhenPutBack) << field.name << " seed " << seed;
        }
}

TEST_P(RecordEquality, NamesEachFieldOnce) {
    const auto names = GetParam().fieldNames();
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
}

INSTANTIATE_TEST_SUITE_P(Of, RecordEquality, ::testing::ValuesIn(support::recordTypes()),
                         [](const auto& info) { return info.param.name; });

TEST(RecordEqualityOfTexts, GoesByCanonicalEquivalenceInEveryText) {
    Shot a;
    a.title = "caf\u00E9";
    a.parameters.set("\u212A", "\u00C5");
    a.imageKey = "\u037E";
    Shot b;
    b.title = "cafe\u0301";
    b.parameters.set("K", "A\u030A");
    b.imageKey = ";";
    EXPECT_TRUE(a == b);
}

TEST(EnumTexts, SpellTheCasesOfEachEnumerationInOrder) {
    EXPECT_EQ(rawValue(SoundMode::sync), "sync");
    EXPECT_EQ(rawValue(SoundMode::mos), "mos");
    EXPECT_EQ(rawValue(SoundMode::roomTone), "roomTone");
    EXPECT_EQ(EnumTexts<SoundMode>::texts.size(), 3U);
    EXPECT_EQ(rawValue(TakeResult::pending), "pending");
    EXPECT_EQ(rawValue(TakeResult::good), "good");
    EXPECT_EQ(rawValue(TakeResult::ng), "ng");
    EXPECT_EQ(EnumTexts<TakeResult>::texts.size(), 3U);
    EXPECT_EQ(rawValue(RelatedFileKind::file), "file");
    EXPECT_EQ(rawValue(RelatedFileKind::folder), "folder");
    EXPECT_EQ(rawValue(RelatedFileKind::link), "link");
    EXPECT_EQ(EnumTexts<RelatedFileKind>::texts.size(), 3U);
}

}  // namespace
}  // namespace vantry
