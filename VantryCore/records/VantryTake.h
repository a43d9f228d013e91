#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <tuple>

#include "VantryCore/records/Field.h"
#include "VantryCore/records/Identifier.h"
#include "VantryCore/records/Moment.h"
#include "VantryCore/records/Parameters.h"

namespace vantry {

/// What is recorded: picture and sound, picture only, or sound only.
enum class SoundMode : std::uint8_t { sync, mos, roomTone };

template <>
struct EnumTexts<SoundMode> {
    static constexpr std::array<std::string_view, 3> texts{"sync", "mos", "roomTone"};
};

/// The verdict on a take.
enum class TakeResult : std::uint8_t { pending, good, ng };

template <>
struct EnumTexts<TakeResult> {
    static constexpr std::array<std::string_view, 3> texts{"pending", "good", "ng"};
};

/// One take logged on set.
struct VantryTake {
    Identifier id;
    std::optional<Text> conflictKey;
    std::int64_t number = 0;                   ///< 1 or more, within the shot
    std::optional<std::int64_t> cameraNumber;  ///< the shot's running camera number; absent without picture
    std::optional<std::int64_t> soundNumber;   ///< the shot's running sound number; absent without sound
    SoundMode soundMode = SoundMode::sync;
    Text cameraFile;
    Text mixerFile;
    Text notes;
    TakeResult result = TakeResult::pending;
    std::int64_t stars = 0;  ///< 0 to 5
    Parameters parameters;   ///< those in force when the take was made
    Moment createdAt;

    static constexpr auto fields() {
        using T = VantryTake;
        return std::tuple(field("id", &T::id), field("conflictKey", &T::conflictKey),
                          field("number", &T::number), field("cameraNumber", &T::cameraNumber),
                          field("soundNumber", &T::soundNumber), field("soundMode", &T::soundMode),
                          field("cameraFile", &T::cameraFile), field("mixerFile", &T::mixerFile),
                          field("notes", &T::notes), field("result", &T::result), field("stars", &T::stars),
                          field("parameters", &T::parameters), field("createdAt", &T::createdAt));
    }

    /// A new take with a fresh identifier, logged now.
    [[nodiscard]] static VantryTake make(std::int64_t number, std::optional<std::int64_t> cameraNumber,
                                         std::optional<std::int64_t> soundNumber, SoundMode soundMode,
                                         Parameters parameters);
};

}  // namespace vantry
