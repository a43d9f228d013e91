#include "VantryCore/records/CrewMember.h"

#include <algorithm>

namespace vantry {

static_assert(listsEveryMember<CrewMember>());

namespace {

struct Titles {
    std::string_view zh, en;
};

constexpr std::array<Titles, 18> titles{{
    {"制片人", "Producer"},
    {"执行制片", "Line producer"},
    {"副导演", "Assistant director"},
    {"编剧", "Screenwriter"},
    {"摄影指导", "Director of photography"},
    {"摄影师", "Camera operator"},
    {"摄影助理", "Camera assistant"},
    {"灯光师", "Gaffer"},
    {"器械师", "Grip"},
    {"录音师", "Sound mixer"},
    {"挑杆员", "Boom operator"},
    {"场记", "Script supervisor"},
    {"美术指导", "Production designer"},
    {"服装", "Costume"},
    {"化妆", "Makeup"},
    {"剪辑师", "Editor"},
    {"调色师", "Colorist"},
    {"自定义职位", "Custom role"},
}};

}  // namespace

const std::array<CrewRole, 18>& allCrewRoles() {
    static const auto roles = [] {
        std::array<CrewRole, 18> all{};
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] = static_cast<CrewRole>(i);
        return all;
    }();
    return roles;
}

std::string_view title(CrewRole role, bool english) {
    const Titles& pair = titles[static_cast<std::size_t>(role)];
    return english ? pair.en : pair.zh;
}

std::optional<CrewRole> crewRole(std::string_view rawValue) {
    const auto& texts = EnumTexts<CrewRole>::texts;
    const auto found = std::find(texts.begin(), texts.end(), rawValue);
    if (found == texts.end())
        return std::nullopt;
    return static_cast<CrewRole>(found - texts.begin());
}

CrewMember CrewMember::make(CrewRole role, Text name, Text customRole) {
    return CrewMember{Identifier::random(), role, std::move(customRole), std::move(name)};
}

Text CrewMember::title(bool english) const {
    if (role == CrewRole::custom && !isBlank(customRole.utf8()))
        return customRole;
    return Text(vantry::title(role, english));
}

}  // namespace vantry
