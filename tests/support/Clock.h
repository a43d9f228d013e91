#pragma once

#include <cstdint>
#include <ctime>
#include <ostream>
#include <string>

#include "VantryCore/records/Moment.h"
#include "VantryCore/records/Zone.h"

namespace vantry::support {

/// The moment of a date and time in UTC.
[[nodiscard]] inline Moment utc(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    std::tm fields{};
    fields.tm_year = year - 1900;
    fields.tm_mon = month - 1;
    fields.tm_mday = day;
    fields.tm_hour = hour;
    fields.tm_min = minute;
    fields.tm_sec = second;
    return Moment{static_cast<double>(::timegm(&fields) - unixSecondsOfReferenceDate)};
}

/// What the clock of a zone shows at a moment, such as "2026-03-08 02:30:00".
[[nodiscard]] inline std::string clockIn(const Zone& zone, Moment moment) {
    const auto unix = static_cast<std::int64_t>(moment.seconds) + unixSecondsOfReferenceDate;
    const std::time_t local = unix + zone.offsetAt(unix);
    std::tm fields{};
    ::gmtime_r(&local, &fields);
    char text[64];
    const auto length = std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &fields);
    return std::string(text, length);
}

}  // namespace vantry::support

namespace vantry {

inline void PrintTo(const Moment& moment, std::ostream* out) {
    const std::time_t unix = static_cast<std::time_t>(moment.seconds) + unixSecondsOfReferenceDate;
    std::tm fields{};
    char text[64];
    if (::gmtime_r(&unix, &fields) != nullptr &&
        std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S UTC", &fields) > 0)
        *out << text;
    else
        *out << moment.seconds;
}

}  // namespace vantry
