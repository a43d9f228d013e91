#include "VantryCore/records/Shot.h"

#include <algorithm>
#include <limits>
#include <unordered_set>

namespace vantry {

static_assert(listsEveryMember<Shot>());
static_assert(listsEveryMember<Stroke>());
static_assert(listsEveryMember<Point>());
static_assert(listsEveryMember<Parameters>());

namespace {

std::int64_t nextNumber(const std::vector<std::int64_t>& numbers) {
    if (numbers.empty())
        return 1;
    const std::int64_t largest = *std::max_element(numbers.begin(), numbers.end());
    if (largest != std::numeric_limits<std::int64_t>::max())
        return largest + 1;
    const std::unordered_set<std::int64_t> used(numbers.begin(), numbers.end());
    std::int64_t candidate = 1;
    while (used.contains(candidate))
        ++candidate;
    return candidate;
}

std::int64_t nextNumber(const NodeList<VantryTake>& takes, std::optional<std::int64_t> VantryTake::*member) {
    std::vector<std::int64_t> numbers;
    numbers.reserve(takes.size());
    for (const auto& take : takes)
        if (const auto number = (*take).*member)
            numbers.push_back(*number);
    return nextNumber(numbers);
}

}  // namespace

Shot Shot::make(Text code, Text title, Parameters parameters) {
    Shot shot;
    shot.id = Identifier::random();
    shot.code = std::move(code);
    shot.title = std::move(title);
    shot.parameters = std::move(parameters);
    return shot;
}

Identifier Shot::newTake() {
    std::vector<std::int64_t> numbers;
    numbers.reserve(takes.size());
    for (const auto& take : takes)
        numbers.push_back(take->number);
    std::optional<std::int64_t> cameraNumber;
    if (soundMode != SoundMode::roomTone)
        cameraNumber = nextNumber(takes, &VantryTake::cameraNumber);
    std::optional<std::int64_t> soundNumber;
    if (soundMode != SoundMode::mos)
        soundNumber = nextNumber(takes, &VantryTake::soundNumber);
    takes.emplace_back(
        VantryTake::make(nextNumber(numbers), cameraNumber, soundNumber, soundMode, parameters));
    return takes.back()->id;
}

void Shot::setSoundMode(SoundMode mode, const Identifier& takeID) {
    VantryTake* take = editRecord(takes, takeID);
    if (take == nullptr)
        return;
    if (mode != SoundMode::roomTone && !take->cameraNumber)
        take->cameraNumber = nextNumber(takes, &VantryTake::cameraNumber);
    if (mode != SoundMode::mos && !take->soundNumber)
        take->soundNumber = nextNumber(takes, &VantryTake::soundNumber);
    take->soundMode = mode;
}

bool Shot::complete() const {
    return std::any_of(takes.begin(), takes.end(),
                       [](const auto& take) { return take->result == TakeResult::good; });
}

std::int64_t Shot::maxStars() const {
    const auto best = std::max_element(takes.begin(), takes.end(),
                                       [](const auto& a, const auto& b) { return a->stars < b->stars; });
    return best == takes.end() ? 0 : (*best)->stars;
}

std::optional<Moment> Shot::scheduledEnd() const {
    if (!scheduledAt)
        return std::nullopt;
    return Moment{scheduledAt->seconds + static_cast<double>(durationMinutes) * 60};
}

}  // namespace vantry
