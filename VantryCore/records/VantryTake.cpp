#include "VantryCore/records/VantryTake.h"

namespace vantry {

static_assert(listsEveryMember<VantryTake>());

VantryTake VantryTake::make(std::int64_t number, std::optional<std::int64_t> cameraNumber,
                            std::optional<std::int64_t> soundNumber, SoundMode soundMode,
                            Parameters parameters) {
    VantryTake take;
    take.id = Identifier::random();
    take.number = number;
    take.cameraNumber = cameraNumber;
    take.soundNumber = soundNumber;
    take.soundMode = soundMode;
    take.parameters = std::move(parameters);
    take.createdAt = Moment::now();
    return take;
}

}  // namespace vantry
