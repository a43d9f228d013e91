#pragma once

#include <cstdint>
#include <optional>
#include <tuple>
#include <vector>

#include "VantryCore/records/Field.h"
#include "VantryCore/records/Identifier.h"
#include "VantryCore/records/Moment.h"
#include "VantryCore/records/Node.h"
#include "VantryCore/records/Parameters.h"
#include "VantryCore/records/Stroke.h"
#include "VantryCore/records/VantryTake.h"

namespace vantry {

/// The plan of one shot and the takes that were logged for it.
struct Shot {
    Identifier id;
    std::optional<Text> conflictKey;
    Text code;
    Text title;
    Text description;
    Text framing;
    Text movement;
    Text soundDescription;
    SoundMode soundMode = SoundMode::sync;  ///< the mode that the next take starts with
    Parameters parameters;
    std::optional<Text> imageKey;  ///< names the storyboard image in the data folder
    std::vector<Stroke> strokes;   ///< the drawing over it, oldest first
    std::optional<Moment> scheduledAt;
    std::int64_t durationMinutes = 30;  ///< 1 to 10080
    bool cancelled = false;
    NodeList<VantryTake> takes;  ///< in the order of creation

    static constexpr auto fields() {
        using S = Shot;
        return std::tuple(field("id", &S::id), field("conflictKey", &S::conflictKey), field("code", &S::code),
                          field("title", &S::title), field("description", &S::description),
                          field("framing", &S::framing), field("movement", &S::movement),
                          field("soundDescription", &S::soundDescription), field("soundMode", &S::soundMode),
                          field("parameters", &S::parameters), field("imageKey", &S::imageKey),
                          field("strokes", &S::strokes), field("scheduledAt", &S::scheduledAt),
                          field("durationMinutes", &S::durationMinutes), field("cancelled", &S::cancelled),
                          field("takes", &S::takes));
    }

    /// A new shot with a fresh identifier.
    [[nodiscard]] static Shot make(Text code, Text title, Parameters parameters);

    /// Logs a new take at the end and returns its identifier. Take, camera and sound numbers run on from the
    /// largest of this shot's takes, each counter for itself; a mode without picture or sound takes no
    /// number.
    Identifier newTake();
    /// Changes a take's mode. A number that the new mode needs and the take lacks is given; none is taken
    /// away. Does nothing when no take has that identifier.
    void setSoundMode(SoundMode mode, const Identifier& takeID);

    /// Whether at least one take is good.
    [[nodiscard]] bool complete() const;
    /// The best rating of the takes; 0 without takes.
    [[nodiscard]] std::int64_t maxStars() const;
    /// The planned end, an elapsed sum of minutes; absent for an unscheduled shot.
    [[nodiscard]] std::optional<Moment> scheduledEnd() const;
};

}  // namespace vantry
