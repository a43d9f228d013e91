#include "VantryCore/records/Field.h"

#include <set>

#include <gtest/gtest.h>

#include "tests/support/RandomRecords.h"
#include "tests/support/RecordTypes.h"

namespace vantry {
namespace {

template <class T>
class RecordEquality : public ::testing::Test {};
TYPED_TEST_SUITE(RecordEquality, support::RecordTypes, support::RecordTypeNames);

TYPED_TEST(RecordEquality, HoldsForACopyAndForARecordMadeTheSameWay) {
    for (std::uint64_t seed = 0; seed < 50; ++seed) {
        const auto record = support::RandomRecords(seed).make<TypeParam>();
        const auto copy = record;
        ASSERT_TRUE(record == copy) << seed;
        ASSERT_TRUE(record == support::RandomRecords(seed).make<TypeParam>()) << seed;
    }
}

TYPED_TEST(RecordEquality, EndsWhenAnySingleFieldChanges) {
    for (std::uint64_t seed = 0; seed < 50; ++seed) {
        const auto record = support::RandomRecords(seed).make<TypeParam>();
        forEachField<TypeParam>([&](const auto& field) {
            auto changed = record;
            support::change(changed.*field.member);
            EXPECT_FALSE(changed == record) << field.name << " seed " << seed;
            EXPECT_FALSE(record == changed) << field.name << " seed " << seed;
            changed.*field.member = record.*field.member;
            EXPECT_TRUE(changed == record) << field.name << " seed " << seed;
        });
    }
}

TYPED_TEST(RecordEquality, NamesEachFieldOnce) {
    std::set<std::string_view> names;
    forEachField<TypeParam>([&](const auto& field) { names.insert(field.name); });
    EXPECT_EQ(names.size(), fieldCount<TypeParam>);
}

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
