#include "Vantry/schedule/rules/ShootSchedule.h"
#include "Vantry/verification/Smoke.h"
#include "VantryCore/records/ClockReading.h"

namespace vantry {
namespace {

/// The shoots of a production in New York.
class Fixture {
public:
    Fixture()
        : calendar(zone()) {}

    [[nodiscard]] Moment at(int month, int day, int hour, int minute, int second = 0) const {
        const auto moment = calendar.momentShowing({2026, month, day, hour, minute, second});
        Smoke::demand(moment.has_value(), "Unable to construct fixture date");
        return *moment;
    }
    [[nodiscard]] static Shot shot(std::optional<Moment> start, std::int64_t minutes) {
        Shot made = Shot::make("01", "Verification", {});
        made.scheduledAt = start;
        made.durationMinutes = minutes;
        return made;
    }
    [[nodiscard]] bool occurs(const Shot& shot, int month, int day) const {
        return ShootSchedule::occurs(shot, at(month, day, 12, 0), calendar);
    }
    void demandLength(int month, int day, double seconds, const char* text) const {
        const auto interval = calendar.day(at(month, day, 12, 0));
        Smoke::demand(interval && interval->end.seconds - interval->start.seconds == seconds, text);
    }

    const Calendar calendar;

private:
    static Zone zone() {
        const auto found = Zone::find("America/New_York");
        Smoke::demand(found.has_value(), "Unable to construct fixture date");
        return *found;
    }
};

void verifyMidnight(const Fixture& fixture) {
    const Shot overnight = Fixture::shot(fixture.at(10, 18, 23, 50), 30);
    Smoke::demand(fixture.occurs(overnight, 10, 18), "An overnight shoot must appear on its starting day");
    Smoke::demand(fixture.occurs(overnight, 10, 19), "An overnight shoot must appear on its second day");
    Smoke::demand(!fixture.occurs(overnight, 10, 20), "An overnight shoot must not mark an unrelated day");

    const Shot ending = Fixture::shot(fixture.at(10, 18, 23, 30), 30);
    Smoke::demand(fixture.occurs(ending, 10, 18), "A shoot ending at midnight belongs to its starting day");
    Smoke::demand(!fixture.occurs(ending, 10, 19), "An exact midnight ending must not mark the next day");

    const Shot starting = Fixture::shot(fixture.at(10, 19, 0, 0), 15);
    Smoke::demand(!fixture.occurs(starting, 10, 18), "A midnight start must not mark the preceding day");
    Smoke::demand(fixture.occurs(starting, 10, 19), "A midnight start belongs to the new day");

    Smoke::demand(!ShootSchedule::overlaps(ending, starting), "Adjacent shoots must not conflict");
    Smoke::demand(!ShootSchedule::overlaps(starting, ending),
                  "Overlap must be symmetric for adjacent shoots");
    Smoke::demand(ShootSchedule::overlaps(overnight, starting),
                  "Overlapping shoots across midnight must conflict");
    Smoke::demand(ShootSchedule::overlaps(starting, overnight),
                  "Overlap must be symmetric for overnight shoots");
    Smoke::demand(!ShootSchedule::overlaps(overnight, overnight), "A shot must not conflict with itself");

    const Shot unscheduled = Fixture::shot(std::nullopt, 30);
    Smoke::demand(!fixture.occurs(unscheduled, 10, 18), "Unscheduled shots must not appear on the calendar");
    Smoke::demand(!ShootSchedule::overlaps(unscheduled, overnight) &&
                      !ShootSchedule::overlaps(overnight, unscheduled),
                  "Unscheduled shots must not produce conflicts");
}

void verifyMinutes(const Fixture& fixture) {
    const Moment minute = fixture.at(10, 18, 14, 27);
    Smoke::demand(ShootSchedule::normalizedToMinute(fixture.at(10, 18, 14, 27, 53), fixture.calendar) ==
                      minute,
                  "Minute normalization must remove hidden seconds without changing the displayed minute");
    Smoke::demand(ShootSchedule::normalizedToMinute(minute, fixture.calendar) == minute,
                  "Minute normalization must be idempotent");
}

void verifySpring(const Fixture& fixture) {
    fixture.demandLength(3, 8, 82800, "Spring fixture must be a 23-hour calendar day");
    const Shot early = Fixture::shot(fixture.at(3, 9, 0, 30), 10);
    Smoke::demand(!fixture.occurs(early, 3, 8),
                  "Spring DST must not include a shoot after the true day boundary");
    Smoke::demand(fixture.occurs(early, 3, 9),
                  "The day after spring DST must include its early morning shoots");
    const Shot crossing = Fixture::shot(fixture.at(3, 7, 23, 45), 210);
    Smoke::demand(fixture.occurs(crossing, 3, 7), "A spring DST crossing must include the preceding date");
    Smoke::demand(fixture.occurs(crossing, 3, 8), "A spring DST crossing must include the transition date");
    Smoke::demand(crossing.scheduledEnd()->seconds - crossing.scheduledAt->seconds == 12600 &&
                      readClock(*crossing.scheduledEnd(), fixture.calendar.zone()).hour == 4,
                  "Shoot duration must represent elapsed minutes across the missing hour");
}

void verifyAutumn(const Fixture& fixture) {
    fixture.demandLength(11, 1, 90000, "Autumn fixture must be a 25-hour calendar day");
    const Shot late = Fixture::shot(fixture.at(11, 1, 23, 30), 30);
    Smoke::demand(fixture.occurs(late, 11, 1), "Autumn DST must retain shoots in the day's 25th hour");
    Smoke::demand(!fixture.occurs(late, 11, 2),
                  "An autumn DST shoot ending at midnight must not leak into the next date");
    const Shot overnight = Fixture::shot(fixture.at(11, 1, 23, 45), 30);
    Smoke::demand(fixture.occurs(overnight, 11, 1) && fixture.occurs(overnight, 11, 2),
                  "An autumn DST overnight shoot must mark both calendar dates");
}

}  // namespace

void CalendarVerification::run() {
    const Fixture fixture;
    verifyMidnight(fixture);
    verifyMinutes(fixture);
    verifySpring(fixture);
    verifyAutumn(fixture);
    Smoke::pass("shoot days, conflicts, hidden seconds and days of 23 and 25 hours");
}

}  // namespace vantry
