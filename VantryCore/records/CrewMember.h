#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <tuple>

#include "VantryCore/records/Field.h"
#include "VantryCore/records/Identifier.h"
#include "VantryCore/records/Text.h"

namespace vantry {

/// The crew jobs, in the order of every role picker.
enum class CrewRole : std::uint8_t {
    producer,
    executiveProducer,
    assistantDirector,
    screenwriter,
    cinematographer,
    cameraOperator,
    cameraAssistant,
    gaffer,
    grip,
    soundMixer,
    boomOperator,
    scriptSupervisor,
    productionDesigner,
    costume,
    makeup,
    editor,
    colorist,
    custom,
};

template <>
struct EnumTexts<CrewRole> {
    static constexpr std::array<std::string_view, 18> texts{"producer",
                                                            "executiveProducer",
                                                            "assistantDirector",
                                                            "screenwriter",
                                                            "cinematographer",
                                                            "cameraOperator",
                                                            "cameraAssistant",
                                                            "gaffer",
                                                            "grip",
                                                            "soundMixer",
                                                            "boomOperator",
                                                            "scriptSupervisor",
                                                            "productionDesigner",
                                                            "costume",
                                                            "makeup",
                                                            "editor",
                                                            "colorist",
                                                            "custom"};
};

/// All jobs, in order.
[[nodiscard]] const std::array<CrewRole, 18>& allCrewRoles();
/// The job's title, such as "Line producer" or "执行制片"; never derived from the stored text.
[[nodiscard]] std::string_view title(CrewRole role, bool english);
/// The job of a stored text, or nothing for an unknown one.
[[nodiscard]] std::optional<CrewRole> crewRole(std::string_view rawValue);

/// A member of a production's crew. Facts of one day are on the call sheet's row, not here.
struct CrewMember {
    Identifier id;
    CrewRole role = CrewRole::producer;
    Text customRole;  ///< used only while `role` is `custom`, kept otherwise
    Text name;

    static constexpr auto fields() {
        return std::tuple(field("id", &CrewMember::id), field("role", &CrewMember::role),
                          field("customRole", &CrewMember::customRole), field("name", &CrewMember::name));
    }

    /// A new member with a fresh identifier.
    [[nodiscard]] static CrewMember make(CrewRole role, Text name = {}, Text customRole = {});

    /// The custom job as stored, if there is one that is not blank, else the title of the role.
    [[nodiscard]] Text title(bool english) const;
};

}  // namespace vantry
