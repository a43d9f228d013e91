#include "VantryCore/records/CallSheetFields.h"

#include <array>

namespace vantry {
namespace {

constexpr std::array overview{
    CallSheetField{"company", "制作单位", "Production company"},
    CallSheetField{"version", "版本／状态", "Version / status"},
    CallSheetField{"shootDay", "第几拍摄日", "Shoot day"},
    CallSheetField{"generalCall", "统一集合时间", "General call"},
    CallSheetField{"shootingStart", "预计开拍", "Shooting starts"},
    CallSheetField{"wrap", "预计收工", "Estimated wrap"},
};

constexpr std::array locations{
    CallSheetField{"location", "主要场地名称", "Main location"},
    CallSheetField{"address", "详细地址", "Street address", true},
    CallSheetField{"map", "地图链接／定位说明", "Map link / directions"},
    CallSheetField{"basecamp", "集合点／驻地", "Meeting point / base camp"},
    CallSheetField{"parking", "停车与入场说明", "Parking & access", true},
    CallSheetField{"transport", "接驳／交通安排", "Transport", true},
    CallSheetField{"otherLocations", "其他场地、地址及转场时间", "Other locations, addresses & moves", true},
};

constexpr std::array contacts{
    CallSheetField{"productionContact", "制片联系人与电话", "Production contact & phone"},
    CallSheetField{"assistantDirector", "现场统筹／副导演与电话", "AD / on-set contact & phone"},
    CallSheetField{"locationContact", "场地联系人与电话", "Location contact & phone"},
};

constexpr std::array weather{
    CallSheetField{"weather", "天气／温度（手动填写）", "Weather / temperature (manual)"},
    CallSheetField{"sunrise", "日出", "Sunrise"},
    CallSheetField{"sunset", "日落", "Sunset"},
    CallSheetField{"breakfast", "早餐时间与地点", "Breakfast time & location"},
    CallSheetField{"lunch", "午餐时间与地点", "Lunch time & location"},
    CallSheetField{"dinner", "晚餐时间与地点", "Dinner time & location"},
};

constexpr std::array emergency{
    CallSheetField{"hospital", "就近医院名称", "Nearest hospital"},
    CallSheetField{"hospitalAddress", "医院地址", "Hospital address", true},
    CallSheetField{"hospitalPhone", "医院联系电话", "Hospital phone"},
    CallSheetField{"emergency", "当地紧急联系电话", "Local emergency number"},
    CallSheetField{"safety", "安全／场地要求", "Safety / location requirements", true},
    CallSheetField{"notes", "其他通告", "Additional instructions", true},
};

constexpr std::array allSections{
    CallSheetSection{"基本安排", "Day overview", overview},
    CallSheetSection{"场地与交通", "Locations & transport", locations},
    CallSheetSection{"联系人", "Contacts", contacts},
    CallSheetSection{"天气与用餐", "Weather & meals", weather},
    CallSheetSection{"应急与注意事项", "Emergency & notes", emergency},
};

}  // namespace

std::span<const CallSheetSection> CallSheetFields::sections() {
    return allSections;
}

}  // namespace vantry
