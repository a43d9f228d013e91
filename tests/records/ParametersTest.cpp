#include "VantryCore/records/Parameters.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace vantry {
namespace {

Parameters with(std::initializer_list<std::pair<const char*, const char*>> values) {
    Parameters parameters;
    for (const auto& [key, value] : values)
        parameters.set(key, value);
    return parameters;
}

TEST(Parameters, ListTheirKeysInOrder) {
    const std::vector<std::string_view> all{
        "manufacturer", "focal", "aperture", "filters",    "nd",     "iso", "shutterMode", "shutter",
        "wb",           "tint",  "lut",      "resolution", "aspect", "fps", "log",         "raw"};
    const std::vector<std::string_view> inherited{"manufacturer", "iso",  "shutterMode", "shutter",
                                                  "wb",           "tint", "lut",         "resolution",
                                                  "aspect",       "fps",  "log",         "raw"};
    EXPECT_TRUE(std::ranges::equal(Parameters::allKeys, all));
    EXPECT_TRUE(std::ranges::equal(Parameters::inheritedKeys, inherited));
}

TEST(Parameters, ShowThreeSectionsWithTheLabelsOfBothLanguages) {
    struct Row {
        const char *section, *key, *zh, *en;
    };
    const Row rows[] = {
        {"镜头/Lens", "manufacturer", "镜头厂商", "Manufacturer"},
        {"镜头/Lens", "focal", "焦段 (mm)", "Focal length (mm)"},
        {"镜头/Lens", "aperture", "光圈 (T / f)", "Aperture (T / f)"},
        {"镜头/Lens", "filters", "滤镜（黑柔 / 白柔 / CPL 等）", "Filters (Black / White Mist, CPL…)"},
        {"镜头/Lens", "nd", "ND（无 / 1/16 / 1/8 等）", "ND (None / 1/16 / 1/8…) "},
        {"相机/Camera", "iso", "ISO", "ISO"},
        {"相机/Camera", "shutterMode", "快门模式（速度 / 角度）", "Shutter mode (speed / angle)"},
        {"相机/Camera", "shutter", "快门值（1/48 s / 180°）", "Shutter value (1/48 s / 180°)"},
        {"相机/Camera", "wb", "白平衡 (K)", "White balance (K)"},
        {"相机/Camera", "tint", "Tint", "Tint"},
        {"录制与监视/Recording & monitoring", "resolution", "分辨率", "Resolution"},
        {"录制与监视/Recording & monitoring", "aspect", "画幅", "Aspect ratio"},
        {"录制与监视/Recording & monitoring", "fps", "帧率 (fps)", "Frame rate (fps)"},
        {"录制与监视/Recording & monitoring", "log", "Log / 曲线", "Log / curve"},
        {"录制与监视/Recording & monitoring", "raw", "RAW / 格式", "RAW / format"},
        {"录制与监视/Recording & monitoring", "lut", "监视 LUT 名称／信息",
         "Monitoring LUT name / information"},
    };
    std::size_t next = 0;
    for (const auto& section : parameterSections())
        for (const auto& field : section.fields) {
            ASSERT_LT(next, std::size(rows));
            const Row& row = rows[next++];
            EXPECT_EQ(std::string(section.zh) + "/" + std::string(section.en), row.section);
            EXPECT_EQ(field.key, row.key);
            EXPECT_EQ(field.zh, row.zh);
            EXPECT_EQ(field.en, row.en);
            EXPECT_EQ(std::ranges::count(Parameters::allKeys, field.key), 1) << field.key;
        }
    EXPECT_EQ(next, std::size(rows));
    EXPECT_EQ(parameterSections().size(), 3U);
}

TEST(Parameters, ReadAMissingKeyLikeAnEmptyValueButCompareTheTwoAsDifferent) {
    const Parameters empty;
    const Parameters holding = with({{"iso", ""}});
    EXPECT_EQ(empty["iso"], holding["iso"]);
    EXPECT_TRUE(holding["iso"].empty());
    EXPECT_FALSE(empty == holding);
}

TEST(FillingDefaults, FillsWhatIsBlankAndKeepsWhatIsNot) {
    const Parameters own =
        with({{"iso", "  "}, {"fps", "24"}, {"wb", "\u3000\n"}, {"log", " x "}, {"focal", ""}});
    const Parameters defaults = with(
        {{"iso", " 800 "}, {"fps", "25"}, {"wb", "5600"}, {"tint", "+2"}, {"focal", "50"}, {"nd", "0.9"}});
    const Parameters filled = own.fillingDefaults(defaults);
    EXPECT_EQ(filled["iso"].utf8(), " 800 ");
    EXPECT_EQ(filled["fps"].utf8(), "24");
    EXPECT_EQ(filled["wb"].utf8(), "5600");
    EXPECT_EQ(filled["tint"].utf8(), "+2");
    EXPECT_EQ(filled["log"].utf8(), " x ");
    EXPECT_EQ(filled["focal"].utf8(), "");
    EXPECT_EQ(filled.values.find("nd"), nullptr);
    EXPECT_EQ(own["iso"].utf8(), "  ");
}

TEST(FillingDefaults, StoresTheEmptyTextUnderEveryInheritedKeyWhenThereAreNoDefaults) {
    const Parameters filled = with({{"iso", "  "}}).fillingDefaults({});
    EXPECT_EQ(filled.values.size(), Parameters::inheritedKeys.size());
    for (const auto key : Parameters::inheritedKeys) {
        ASSERT_NE(filled.values.find(key), nullptr) << key;
        EXPECT_TRUE(filled[key].empty()) << key;
    }
}

TEST(FillingDefaults, TakesOverABlankDefaultAsItStands) {
    EXPECT_EQ(with({{"iso", ""}}).fillingDefaults(with({{"iso", "  "}}))["iso"].utf8(), "  ");
}

TEST(FillingDefaults, KeepsKeysItDoesNotKnow) {
    const Parameters filled = with({{"own", "1"}}).fillingDefaults(with({{"other", "2"}}));
    EXPECT_EQ(filled["own"].utf8(), "1");
    EXPECT_EQ(filled.values.find("other"), nullptr);
}

TEST(ParameterSummary, JoinsWhatIsThere) {
    struct Case {
        Parameters parameters;
        const char* expected;
    };
    const Case cases[] = {
        {{}, ""},
        {with({{"iso", "800"}, {"fps", "24"}}), "ISO 800 · 24 fps"},
        {with({{"iso", ""}, {"fps", ""}}), ""},
        {with({{"manufacturer", "ZEISS"},
               {"focal", "50"},
               {"aperture", "T2"},
               {"iso", "800"},
               {"resolution", "4K"},
               {"fps", "24"},
               {"wb", "5600"}}),
         "ZEISS · 50 · T2 · ISO 800 · 4K · 24 fps"},
        {with({{"focal", " "}, {"fps", " "}}), "  ·   fps"},
        {with({{"nd", "0.9"}, {"lut", "x"}}), ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(parameterSummary(c.parameters), c.expected);
}

}  // namespace
}  // namespace vantry
