#include "VantryCore/records/Parameters.h"

namespace vantry {
namespace {

constexpr std::array lens{
    ParameterField{"manufacturer", "镜头厂商", "Manufacturer"},
    ParameterField{"focal", "焦段 (mm)", "Focal length (mm)"},
    ParameterField{"aperture", "光圈 (T / f)", "Aperture (T / f)"},
    ParameterField{"filters", "滤镜（黑柔 / 白柔 / CPL 等）", "Filters (Black / White Mist, CPL…)"},
    ParameterField{"nd", "ND（无 / 1/16 / 1/8 等）", "ND (None / 1/16 / 1/8…) "},
};

constexpr std::array camera{
    ParameterField{"iso", "ISO", "ISO"},
    ParameterField{"shutterMode", "快门模式（速度 / 角度）", "Shutter mode (speed / angle)"},
    ParameterField{"shutter", "快门值（1/48 s / 180°）", "Shutter value (1/48 s / 180°)"},
    ParameterField{"wb", "白平衡 (K)", "White balance (K)"},
    ParameterField{"tint", "Tint", "Tint"},
};

constexpr std::array recording{
    ParameterField{"resolution", "分辨率", "Resolution"},
    ParameterField{"aspect", "画幅", "Aspect ratio"},
    ParameterField{"fps", "帧率 (fps)", "Frame rate (fps)"},
    ParameterField{"log", "Log / 曲线", "Log / curve"},
    ParameterField{"raw", "RAW / 格式", "RAW / format"},
    ParameterField{"lut", "监视 LUT 名称／信息", "Monitoring LUT name / information"},
};

constexpr std::array sections{
    ParameterSection{"镜头", "Lens", lens},
    ParameterSection{"相机", "Camera", camera},
    ParameterSection{"录制与监视", "Recording & monitoring", recording},
};

}  // namespace

Parameters Parameters::fillingDefaults(const Parameters& defaults) const {
    Parameters filled = *this;
    for (const auto key : inheritedKeys)
        if (isBlank((*this)[key].utf8()))
            filled.set(key, defaults[key]);
    return filled;
}

std::span<const ParameterSection> parameterSections() {
    return sections;
}

std::string parameterSummary(const Parameters& parameters) {
    std::string summary;
    const auto add = [&](std::string_view before, std::string_view key, std::string_view after) {
        const Text& value = parameters[key];
        if (value.empty())
            return;
        if (!summary.empty())
            summary += " · ";
        summary.append(before).append(value.utf8()).append(after);
    };
    add("", "manufacturer", "");
    add("", "focal", "");
    add("", "aperture", "");
    add("ISO ", "iso", "");
    add("", "resolution", "");
    add("", "fps", " fps");
    return summary;
}

}  // namespace vantry
