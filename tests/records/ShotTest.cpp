#include "VantryCore/records/Shot.h"

#include <limits>

#include <gtest/gtest.h>

namespace vantry {
namespace {

using Number = std::optional<std::int64_t>;
constexpr auto largest = std::numeric_limits<std::int64_t>::max();

struct Numbers {
    std::int64_t take;
    Number camera;
    Number sound;

    friend bool operator==(const Numbers&, const Numbers&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Numbers& n) {
        return out << n.take << "/" << n.camera.value_or(-1) << "/" << n.sound.value_or(-1);
    }
};

std::vector<Numbers> numbersOf(const Shot& shot) {
    std::vector<Numbers> all;
    for (const auto& take : shot.takes)
        all.push_back({take->number, take->cameraNumber, take->soundNumber});
    return all;
}

VantryTake numbered(std::int64_t number, Number camera, Number sound) {
    return VantryTake::make(number, camera, sound, SoundMode::sync, {});
}

Shot shotWith(const std::vector<Numbers>& takes) {
    Shot shot = Shot::make("01", "", {});
    for (const auto& numbers : takes)
        shot.takes.emplace_back(numbered(numbers.take, numbers.camera, numbers.sound));
    return shot;
}

Shot filmed(std::initializer_list<SoundMode> modes) {
    Shot shot = Shot::make("01", "", {});
    for (const auto mode : modes) {
        shot.soundMode = mode;
        shot.newTake();
    }
    return shot;
}

TEST(Shot, StartsWithTheDefaultsOfANewRecord) {
    Parameters parameters;
    parameters.set("iso", "800");
    const Shot shot = Shot::make("02", "Rain", parameters);
    EXPECT_NE(shot.id, Identifier());
    EXPECT_FALSE(shot.conflictKey);
    EXPECT_EQ(shot.code, Text("02"));
    EXPECT_EQ(shot.title, Text("Rain"));
    EXPECT_TRUE(shot.description.empty() && shot.framing.empty() && shot.movement.empty() &&
                shot.soundDescription.empty());
    EXPECT_EQ(shot.soundMode, SoundMode::sync);
    EXPECT_EQ(shot.parameters, parameters);
    EXPECT_FALSE(shot.imageKey);
    EXPECT_TRUE(shot.strokes.empty());
    EXPECT_FALSE(shot.scheduledAt);
    EXPECT_EQ(shot.durationMinutes, 30);
    EXPECT_FALSE(shot.cancelled);
    EXPECT_TRUE(shot.takes.empty());
    EXPECT_NE(Shot::make("02", "Rain", parameters).id, shot.id);
}

TEST(Stroke, HoldsItsPathUnderAFreshIdentifier) {
    const Stroke stroke = Stroke::make({{0.25, 0.5}, {1, 0}});
    EXPECT_NE(stroke.id, Identifier());
    ASSERT_EQ(stroke.points.size(), 2U);
    EXPECT_EQ(stroke.points[1].x, 1);
    EXPECT_NE(Stroke::make({}).id, stroke.id);
}

TEST(NewTake, StartsEveryCounterAtOne) {
    EXPECT_EQ(numbersOf(filmed({SoundMode::sync})), (std::vector<Numbers>{{1, 1, 1}}));
    EXPECT_EQ(numbersOf(filmed({SoundMode::mos})), (std::vector<Numbers>{{1, 1, {}}}));
    EXPECT_EQ(numbersOf(filmed({SoundMode::roomTone})), (std::vector<Numbers>{{1, {}, 1}}));
}

TEST(NewTake, RunsThreeCountersIndependently) {
    const Shot shot = filmed({SoundMode::sync, SoundMode::mos, SoundMode::sync, SoundMode::roomTone});
    EXPECT_EQ(numbersOf(shot), (std::vector<Numbers>{{1, 1, 1}, {2, 2, {}}, {3, 3, 2}, {4, {}, 3}}));
}

TEST(NewTake, ContinuesBehindTheLargestNumberAndLeavesGaps) {
    struct Case {
        const char* name;
        std::vector<Numbers> takes;
        Numbers next;
    };
    const Case cases[] = {
        {"the third of five was deleted", {{1, 1, 1}, {2, 2, 2}, {4, 4, 4}, {5, 5, 5}}, {6, 6, 6}},
        {"the fifth of five was deleted", {{1, 1, 1}, {2, 2, 2}, {3, 3, 3}, {4, 4, 4}}, {5, 5, 5}},
        {"the largest stands first", {{9, 3, 7}, {2, 8, 1}}, {10, 9, 8}},
        {"all takes are without sound", {{1, 1, {}}, {2, 2, {}}}, {3, 3, 1}},
        {"numbers below one", {{-5, -3, 0}}, {-4, -2, 1}},
        {"just below the largest integer",
         {{largest - 1, largest - 1, largest - 1}},
         {largest, largest, largest}},
        {"the largest integer is in use", {{largest, largest, largest}}, {1, 1, 1}},
        {"the largest and the first are in use", {{largest, largest, 2}, {1, 1, largest}}, {2, 2, 1}},
        {"the smallest free number lies in a gap",
         {{largest, largest, largest}, {1, 1, 1}, {2, 2, 3}, {4, 3, 2}},
         {3, 4, 4}},
        {"numbers below one do not fill the gap", {{largest, largest, largest}, {0, -1, 0}}, {1, 1, 1}},
        {"twice the largest", {{largest, largest, largest}, {largest, largest, largest}}, {1, 1, 1}},
    };
    for (const auto& c : cases) {
        Shot shot = shotWith(c.takes);
        shot.newTake();
        EXPECT_EQ(numbersOf(shot).back(), c.next) << c.name;
    }
}

TEST(NewTake, TakesOverModeAndParametersAndLeavesTheRestAtTheDefaults) {
    Shot shot = Shot::make("01", "", {});
    shot.soundMode = SoundMode::mos;
    shot.parameters.set("iso", "800");
    const double before = Moment::now().seconds;
    const Identifier id = shot.newTake();
    const VantryTake& take = *shot.takes.back();
    EXPECT_EQ(take.id, id);
    EXPECT_FALSE(take.conflictKey);
    EXPECT_EQ(take.soundMode, SoundMode::mos);
    EXPECT_EQ(take.parameters, shot.parameters);
    EXPECT_EQ(take.result, TakeResult::pending);
    EXPECT_EQ(take.stars, 0);
    EXPECT_TRUE(take.cameraFile.empty() && take.mixerFile.empty() && take.notes.empty());
    EXPECT_GE(take.createdAt.seconds, before);
    EXPECT_LE(take.createdAt.seconds, Moment::now().seconds);
}

TEST(NewTake, KeepsItsParametersWhenTheShotsAreEditedLater) {
    Shot shot = Shot::make("01", "", {});
    shot.parameters.set("iso", "800");
    shot.newTake();
    shot.parameters.set("iso", "1600");
    EXPECT_EQ(shot.takes.front()->parameters["iso"], Text("800"));
}

TEST(NewTake, GoesToTheEndAndChangesNoOtherTake) {
    Shot shot = filmed({SoundMode::sync, SoundMode::sync});
    const auto before = shot.takes;
    shot.newTake();
    ASSERT_EQ(shot.takes.size(), 3U);
    EXPECT_TRUE(shot.takes[0].isSameAs(before[0]));
    EXPECT_TRUE(shot.takes[1].isSameAs(before[1]));
}

TEST(SetSoundMode, GivesTheNumberThatTheNewModeNeeds) {
    Shot shot = filmed({SoundMode::sync, SoundMode::mos, SoundMode::sync, SoundMode::roomTone});
    shot.setSoundMode(SoundMode::sync, shot.takes[1]->id);
    EXPECT_EQ(numbersOf(shot)[1], (Numbers{2, 2, 4}));
    shot.setSoundMode(SoundMode::sync, shot.takes[3]->id);
    EXPECT_EQ(numbersOf(shot)[3], (Numbers{4, 4, 3}));
    shot.soundMode = SoundMode::sync;
    shot.newTake();
    EXPECT_EQ(numbersOf(shot).back(), (Numbers{5, 5, 5}));
}

TEST(SetSoundMode, TakesNoNumberAway) {
    Shot shot = filmed({SoundMode::sync});
    const Identifier id = shot.takes.front()->id;
    for (const auto mode : {SoundMode::mos, SoundMode::roomTone, SoundMode::sync}) {
        shot.setSoundMode(mode, id);
        EXPECT_EQ(shot.takes.front()->soundMode, mode);
        EXPECT_EQ(numbersOf(shot).front(), (Numbers{1, 1, 1}));
    }
}

TEST(SetSoundMode, GivesExactlyWhatEachChangeOfModeNeeds) {
    struct Case {
        SoundMode from, to;
        Numbers expected;
    };
    const Case cases[] = {
        {SoundMode::mos, SoundMode::mos, {1, 1, {}}},
        {SoundMode::mos, SoundMode::roomTone, {1, 1, 1}},
        {SoundMode::mos, SoundMode::sync, {1, 1, 1}},
        {SoundMode::roomTone, SoundMode::mos, {1, 1, 1}},
        {SoundMode::roomTone, SoundMode::sync, {1, 1, 1}},
        {SoundMode::roomTone, SoundMode::roomTone, {1, {}, 1}},
    };
    for (const auto& c : cases) {
        Shot shot = filmed({c.from});
        shot.setSoundMode(c.to, shot.takes.front()->id);
        EXPECT_EQ(numbersOf(shot).front(), c.expected) << rawValue(c.from) << " to " << rawValue(c.to);
    }
}

TEST(SetSoundMode, LeavesTheShotsOwnModeAndUnknownTakesAlone) {
    Shot shot = filmed({SoundMode::mos});
    shot.setSoundMode(SoundMode::sync, shot.takes.front()->id);
    EXPECT_EQ(shot.soundMode, SoundMode::mos);
    const Shot before = shot;
    shot.setSoundMode(SoundMode::roomTone, Identifier::random());
    EXPECT_TRUE(shot == before);
}

TEST(SetSoundMode, DoesNotReachASnapshotOfTheShot) {
    Shot shot = filmed({SoundMode::mos});
    const Shot snapshot = shot;
    shot.setSoundMode(SoundMode::sync, shot.takes.front()->id);
    EXPECT_EQ(snapshot.takes.front()->soundMode, SoundMode::mos);
    EXPECT_FALSE(snapshot.takes.front()->soundNumber);
}

TEST(Shot, IsCompleteWithOneGoodTake) {
    Shot shot = filmed({SoundMode::sync, SoundMode::sync});
    EXPECT_FALSE(Shot().complete());
    EXPECT_FALSE(shot.complete());
    shot.takes[0].edit().result = TakeResult::ng;
    EXPECT_FALSE(shot.complete());
    shot.takes[1].edit().result = TakeResult::good;
    EXPECT_TRUE(shot.complete());
}

TEST(Shot, KnowsTheBestRatingOfItsTakes) {
    Shot shot = filmed({SoundMode::sync, SoundMode::sync, SoundMode::sync});
    EXPECT_EQ(Shot().maxStars(), 0);
    EXPECT_EQ(shot.maxStars(), 0);
    shot.takes[0].edit().stars = 2;
    shot.takes[1].edit().stars = 5;
    shot.takes[2].edit().stars = 3;
    EXPECT_EQ(shot.maxStars(), 5);
}

TEST(Shot, EndsAfterItsDurationHasElapsed) {
    Shot shot;
    EXPECT_FALSE(shot.scheduledEnd());
    shot.scheduledAt = Moment{100.5};
    EXPECT_EQ(shot.scheduledEnd()->seconds, 100.5 + 30 * 60);
    shot.durationMinutes = 10080;
    EXPECT_EQ(shot.scheduledEnd()->seconds, 100.5 + 7 * 86400);
    shot.durationMinutes = largest;
    EXPECT_TRUE(shot.scheduledEnd()->isFinite());
}

}  // namespace
}  // namespace vantry
