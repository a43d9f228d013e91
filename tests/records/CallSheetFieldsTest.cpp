#include "VantryCore/records/CallSheetFields.h"

#include <set>
#include <string>

#include <gtest/gtest.h>

namespace vantry {
namespace {

struct Row {
    const char *section, *key, *zh, *en;
    bool multiline;
};

constexpr Row rows[] = {
    {"基本安排/Day overview", "company", "制作单位", "Production company", false},
    {"基本安排/Day overview", "version", "版本／状态", "Version / status", false},
    {"基本安排/Day overview", "shootDay", "第几拍摄日", "Shoot day", false},
    {"基本安排/Day overview", "generalCall", "统一集合时间", "General call", false},
    {"基本安排/Day overview", "shootingStart", "预计开拍", "Shooting starts", false},
    {"基本安排/Day overview", "wrap", "预计收工", "Estimated wrap", false},
    {"场地与交通/Locations & transport", "location", "主要场地名称", "Main location", false},
    {"场地与交通/Locations & transport", "address", "详细地址", "Street address", true},
    {"场地与交通/Locations & transport", "map", "地图链接／定位说明", "Map link / directions", false},
    {"场地与交通/Locations & transport", "basecamp", "集合点／驻地", "Meeting point / base camp", false},
    {"场地与交通/Locations & transport", "parking", "停车与入场说明", "Parking & access", true},
    {"场地与交通/Locations & transport", "transport", "接驳／交通安排", "Transport", true},
    {"场地与交通/Locations & transport", "otherLocations", "其他场地、地址及转场时间",
     "Other locations, addresses & moves", true},
    {"联系人/Contacts", "productionContact", "制片联系人与电话", "Production contact & phone", false},
    {"联系人/Contacts", "assistantDirector", "现场统筹／副导演与电话", "AD / on-set contact & phone", false},
    {"联系人/Contacts", "locationContact", "场地联系人与电话", "Location contact & phone", false},
    {"天气与用餐/Weather & meals", "weather", "天气／温度（手动填写）", "Weather / temperature (manual)",
     false},
    {"天气与用餐/Weather & meals", "sunrise", "日出", "Sunrise", false},
    {"天气与用餐/Weather & meals", "sunset", "日落", "Sunset", false},
    {"天气与用餐/Weather & meals", "breakfast", "早餐时间与地点", "Breakfast time & location", false},
    {"天气与用餐/Weather & meals", "lunch", "午餐时间与地点", "Lunch time & location", false},
    {"天气与用餐/Weather & meals", "dinner", "晚餐时间与地点", "Dinner time & location", false},
    {"应急与注意事项/Emergency & notes", "hospital", "就近医院名称", "Nearest hospital", false},
    {"应急与注意事项/Emergency & notes", "hospitalAddress", "医院地址", "Hospital address", true},
    {"应急与注意事项/Emergency & notes", "hospitalPhone", "医院联系电话", "Hospital phone", false},
    {"应急与注意事项/Emergency & notes", "emergency", "当地紧急联系电话", "Local emergency number", false},
    {"应急与注意事项/Emergency & notes", "safety", "安全／场地要求", "Safety / location requirements", true},
    {"应急与注意事项/Emergency & notes", "notes", "其他通告", "Additional instructions", true},
};

TEST(CallSheetFields, AreTheFormInItsOrderWithTheLabelsOfBothLanguages) {
    std::size_t next = 0;
    for (const auto& section : CallSheetFields::sections())
        for (const auto& field : section.fields) {
            ASSERT_LT(next, std::size(rows));
            const Row& row = rows[next++];
            EXPECT_EQ(std::string(section.zh) + "/" + std::string(section.en), row.section);
            EXPECT_EQ(field.key, row.key);
            EXPECT_EQ(field.zh, row.zh);
            EXPECT_EQ(field.en, row.en);
            EXPECT_EQ(field.multiline, row.multiline) << row.key;
        }
    EXPECT_EQ(next, std::size(rows));
    EXPECT_EQ(CallSheetFields::sections().size(), 5U);
}

TEST(CallSheetFields, HaveEachKeyOnce) {
    std::set<std::string_view> keys;
    for (const auto& section : CallSheetFields::sections())
        for (const auto& field : section.fields)
            EXPECT_TRUE(keys.insert(field.key).second) << field.key;
}

}  // namespace
}  // namespace vantry
