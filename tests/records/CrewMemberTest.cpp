#include "VantryCore/records/CrewMember.h"

#include <gtest/gtest.h>

#include "VantryCore/records/CastMember.h"

namespace vantry {
namespace {

TEST(CrewRole, HasEighteenCasesWithTheirTextsAndTitles) {
    struct Row {
        CrewRole role;
        const char *raw, *zh, *en;
    };
    const Row rows[] = {
        {CrewRole::producer, "producer", "制片人", "Producer"},
        {CrewRole::executiveProducer, "executiveProducer", "执行制片", "Line producer"},
        {CrewRole::assistantDirector, "assistantDirector", "副导演", "Assistant director"},
        {CrewRole::screenwriter, "screenwriter", "编剧", "Screenwriter"},
        {CrewRole::cinematographer, "cinematographer", "摄影指导", "Director of photography"},
        {CrewRole::cameraOperator, "cameraOperator", "摄影师", "Camera operator"},
        {CrewRole::cameraAssistant, "cameraAssistant", "摄影助理", "Camera assistant"},
        {CrewRole::gaffer, "gaffer", "灯光师", "Gaffer"},
        {CrewRole::grip, "grip", "器械师", "Grip"},
        {CrewRole::soundMixer, "soundMixer", "录音师", "Sound mixer"},
        {CrewRole::boomOperator, "boomOperator", "挑杆员", "Boom operator"},
        {CrewRole::scriptSupervisor, "scriptSupervisor", "场记", "Script supervisor"},
        {CrewRole::productionDesigner, "productionDesigner", "美术指导", "Production designer"},
        {CrewRole::costume, "costume", "服装", "Costume"},
        {CrewRole::makeup, "makeup", "化妆", "Makeup"},
        {CrewRole::editor, "editor", "剪辑师", "Editor"},
        {CrewRole::colorist, "colorist", "调色师", "Colorist"},
        {CrewRole::custom, "custom", "自定义职位", "Custom role"},
    };
    ASSERT_EQ(allCrewRoles().size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(allCrewRoles()[i], rows[i].role);
        EXPECT_EQ(rawValue(rows[i].role), rows[i].raw);
        EXPECT_EQ(crewRole(rows[i].raw), rows[i].role);
        EXPECT_EQ(title(rows[i].role, false), rows[i].zh);
        EXPECT_EQ(title(rows[i].role, true), rows[i].en);
    }
}

TEST(CrewRole, IsNothingForAnUnknownText) {
    for (const auto* text : {"", "director", "Producer", "producer ", "制片人", "custom role"})
        EXPECT_FALSE(crewRole(text).has_value()) << text;
}

TEST(CrewMember, IsMadeWithAFreshIdentifierAndEmptyTexts) {
    const auto member = CrewMember::make(CrewRole::grip);
    EXPECT_NE(member.id, Identifier());
    EXPECT_EQ(member.role, CrewRole::grip);
    EXPECT_TRUE(member.name.empty());
    EXPECT_TRUE(member.customRole.empty());
    const auto other = CrewMember::make(CrewRole::custom, "Mei", "Dolly grip");
    EXPECT_EQ(other.name, Text("Mei"));
    EXPECT_EQ(other.customRole, Text("Dolly grip"));
    EXPECT_NE(other.id, member.id);
}

TEST(CrewMember, ShowsItsCustomTitleOnlyInTheCustomRole) {
    struct Case {
        CrewRole role;
        const char *customRole, *zh, *en;
    };
    const Case cases[] = {
        {CrewRole::custom, "   ", "自定义职位", "Custom role"},
        {CrewRole::custom, "", "自定义职位", "Custom role"},
        {CrewRole::custom, "\u3000\n\t\u00A0", "自定义职位", "Custom role"},
        {CrewRole::custom, " Dolly grip ", " Dolly grip ", " Dolly grip "},
        {CrewRole::custom, "威亚", "威亚", "威亚"},
        {CrewRole::gaffer, "Best boy", "灯光师", "Gaffer"},
        {CrewRole::executiveProducer, "", "执行制片", "Line producer"},
    };
    for (const auto& c : cases) {
        const auto member = CrewMember::make(c.role, "", c.customRole);
        EXPECT_EQ(member.title(true).utf8(), c.en);
        EXPECT_EQ(member.title(false).utf8(), c.zh);
    }
}

TEST(CrewMember, KeepsItsCustomTitleWhileAnotherRoleIsChosen) {
    auto member = CrewMember::make(CrewRole::custom, "", "Dolly grip");
    member.role = CrewRole::grip;
    EXPECT_EQ(member.title(true), Text("Grip"));
    member.role = CrewRole::custom;
    EXPECT_EQ(member.title(true), Text("Dolly grip"));
}

TEST(CastMember, IsMadeWithAFreshIdentifierAndEmptyTexts) {
    const auto member = CastMember::make();
    EXPECT_NE(member.id, Identifier());
    EXPECT_TRUE(member.character.empty() && member.actor.empty());
    const auto other = CastMember::make("Woman", "Ana");
    EXPECT_EQ(other.character, Text("Woman"));
    EXPECT_EQ(other.actor, Text("Ana"));
    EXPECT_NE(other.id, member.id);
}

}  // namespace
}  // namespace vantry
