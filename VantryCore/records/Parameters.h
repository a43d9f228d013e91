#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <tuple>

#include "VantryCore/records/Field.h"
#include "VantryCore/records/TextMap.h"

namespace vantry {

/// Camera and lens settings: free text by key. Keys outside `allKeys` are kept without comment.
struct Parameters {
    TextMap values;

    static constexpr auto fields() { return std::tuple(field("values", &Parameters::values)); }

    /// All 16 keys that the program knows.
    static constexpr std::array<std::string_view, 16> allKeys{
        "manufacturer", "focal", "aperture", "filters",    "nd",     "iso", "shutterMode", "shutter",
        "wb",           "tint",  "lut",      "resolution", "aspect", "fps", "log",         "raw"};
    /// The 12 keys that flow from a project to its shots and takes.
    static constexpr std::array<std::string_view, 12> inheritedKeys{
        "manufacturer", "iso",        "shutterMode", "shutter", "wb",  "tint",
        "lut",          "resolution", "aspect",      "fps",     "log", "raw"};

    /// The value of `key`; a missing key reads as the empty text.
    [[nodiscard]] const Text& operator[](std::string_view key) const { return values[key]; }
    /// Stores `value` under `key`, the empty text too.
    void set(std::string_view key, Text value) { values.set(Text(key), std::move(value)); }

    /// A copy in which each inherited key that is blank here holds what `defaults` has, or the empty text.
    [[nodiscard]] Parameters fillingDefaults(const Parameters& defaults) const;
};

/// One editable setting of a page.
struct ParameterField {
    std::string_view key, zh, en;
};

/// A titled group of settings, in the order in which the pages show them.
struct ParameterSection {
    std::string_view zh, en;
    std::span<const ParameterField> fields;
};

/// "Lens", "Camera" and "Recording & monitoring", with the labels of both languages.
[[nodiscard]] std::span<const ParameterSection> parameterSections();

/// One line for rows and documents, such as "ZEISS · 50 mm · ISO 800 · 24 fps"; the same in both languages.
[[nodiscard]] std::string parameterSummary(const Parameters& parameters);

}  // namespace vantry
