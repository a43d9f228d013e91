#include "VantryCore/records/Zone.h"

#include <algorithm>
#include <cstdlib>
#include <unordered_map>

#include <absl/time/civil_time.h>
#include <absl/time/time.h>
#include <unicode/basictz.h>
#include <unicode/timezone.h>
#include <unicode/tztrans.h>
#include <unicode/unistr.h>

namespace vantry {

struct Zone::Rules {
    Rules() = default;
    Rules(const Rules&) = delete;
    Rules& operator=(const Rules&) = delete;
    virtual ~Rules() = default;
    [[nodiscard]] virtual std::int64_t offsetAt(std::int64_t unixSeconds) const = 0;
    [[nodiscard]] virtual std::optional<std::int64_t> nextTransition(std::int64_t unixSeconds) const = 0;
};

namespace {

/// Rules of a zone file of the system.
struct FileRules final : Zone::Rules {
    explicit FileRules(absl::TimeZone timeZone)
        : zone(timeZone) {}

    [[nodiscard]] std::int64_t offsetAt(std::int64_t unixSeconds) const override {
        return zone.At(absl::FromUnixSeconds(unixSeconds)).offset;
    }
    [[nodiscard]] std::optional<std::int64_t> nextTransition(std::int64_t unixSeconds) const override {
        const std::int64_t cycles = std::max<std::int64_t>(unixSeconds - surelyListed, 0) / calendarCycle;
        const std::int64_t last = std::max<std::int64_t>(unixSeconds, 0);
        for (std::int64_t shift = cycles * calendarCycle; shift <= last; shift += calendarCycle) {
            const auto listed = nextListed(unixSeconds - shift);
            if (listed && offsetAt(*listed + shift) == offsetAt(*listed) &&
                offsetAt(*listed + shift - 1) == offsetAt(*listed - 1))
                return *listed + shift;
            if (listed || unixSeconds <= surelyListed)
                break;
        }
        return std::nullopt;
    }

private:
    /// 400 years, after which the Gregorian calendar and every rule that goes by it repeat themselves.
    static constexpr std::int64_t calendarCycle = 146097LL * 86400;
    /// Changes up to the year 2400 are listed one by one, those behind it only for some zones.
    static constexpr std::int64_t surelyListed = 13569465600;

    [[nodiscard]] std::optional<std::int64_t> nextListed(std::int64_t unixSeconds) const {
        absl::TimeZone::CivilTransition change;
        if (!zone.NextTransition(absl::FromUnixSeconds(unixSeconds), &change))
            return std::nullopt;
        return absl::ToUnixSeconds(zone.At(change.to).trans);
    }

    absl::TimeZone zone;
};

/// Rules of ICU's own data.
struct IcuRules final : Zone::Rules {
    explicit IcuRules(std::unique_ptr<icu::BasicTimeZone> timeZone)
        : zone(std::move(timeZone)) {}

    [[nodiscard]] std::int64_t offsetAt(std::int64_t unixSeconds) const override {
        std::int32_t raw = 0;
        std::int32_t saving = 0;
        UErrorCode status = U_ZERO_ERROR;
        zone->getOffset(static_cast<UDate>(unixSeconds) * 1000.0, 0, raw, saving, status);
        return (raw + saving) / 1000;
    }
    [[nodiscard]] std::optional<std::int64_t> nextTransition(std::int64_t unixSeconds) const override {
        icu::TimeZoneTransition change;
        if (zone->getNextTransition(static_cast<UDate>(unixSeconds) * 1000.0, 0, change) == 0)
            return std::nullopt;
        return static_cast<std::int64_t>(change.getTime() / 1000.0);
    }

    std::unique_ptr<icu::BasicTimeZone> zone;
};

/// As many links in a row as Linux follows itself.
constexpr int longestChain = 40;

std::filesystem::path zoneFolder() {
    const char* folder = std::getenv("TZDIR");
    return folder != nullptr && *folder != '\0' ? folder : "/usr/share/zoneinfo";
}

bool looksLikeIdentifier(std::string_view name) {
    if (name.empty() || name.front() == '/' || name.back() == '/' ||
        name.find("..") != std::string_view::npos || name.find("//") != std::string_view::npos)
        return false;
    for (const char c : name) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        if (!plain && c != '_' && c != '-' && c != '+' && c != '/')
            return false;
    }
    return true;
}

std::shared_ptr<const Zone::Rules> rulesFromFile(const std::string& name) {
    // "localtime" is no zone of its own: it means another one on each machine.
    std::error_code error;
    if (name == "localtime" || !std::filesystem::is_regular_file(zoneFolder() / name, error))
        return nullptr;
    absl::TimeZone zone;
    if (!absl::LoadTimeZone(name, &zone))
        return nullptr;
    return std::make_shared<FileRules>(zone);
}

std::shared_ptr<const Zone::Rules> rulesFromIcu(const std::string& name) {
    const icu::UnicodeString id = icu::UnicodeString::fromUTF8(name);
    icu::UnicodeString canonical;
    UBool isSystemZone = 0;
    UErrorCode status = U_ZERO_ERROR;
    icu::TimeZone::getCanonicalID(id, canonical, isSystemZone, status);
    if (U_FAILURE(status) || isSystemZone == 0 || name == "Etc/Unknown")
        return nullptr;
    auto* zone = dynamic_cast<icu::BasicTimeZone*>(icu::TimeZone::createTimeZone(id));
    if (zone == nullptr)
        return nullptr;
    return std::make_shared<IcuRules>(std::unique_ptr<icu::BasicTimeZone>(zone));
}

std::shared_ptr<const Zone::Rules> rulesOf(const std::string& name) {
    thread_local std::unordered_map<std::string, std::shared_ptr<const Zone::Rules>> known;
    if (const auto found = known.find(name); found != known.end())
        return found->second;
    auto rules = rulesFromFile(name);
    if (rules == nullptr)
        rules = rulesFromIcu(name);
    if (rules != nullptr)
        known.emplace(name, rules);
    return rules;
}

/// What follows the last folder "zoneinfo" in a path, or nothing.
std::string nameInZoneFolder(const std::string& path) {
    static constexpr std::string_view folder = "zoneinfo/";
    const std::size_t at = path.rfind(folder);
    return at == std::string::npos ? std::string() : path.substr(at + folder.size());
}

}  // namespace

Zone::Zone(std::string identifier, std::shared_ptr<const Rules> zoneRules)
    : name(std::move(identifier))
    , rules(std::move(zoneRules)) {}

std::optional<Zone> Zone::find(std::string_view identifier) {
    if (!looksLikeIdentifier(identifier))
        return std::nullopt;
    std::string name(identifier);
    auto rules = rulesOf(name);
    if (rules == nullptr)
        return std::nullopt;
    return Zone(std::move(name), std::move(rules));
}

std::string Zone::machineIdentifier(const char* tz, const std::filesystem::path& localTime) {
    if (tz != nullptr) {
        std::string name = *tz == ':' ? tz + 1 : tz;
        if (!name.empty() && name.front() == '/')
            name = nameInZoneFolder(name);
        if (isKnown(name))
            return name;
    }
    // Each link of a chain is looked at by itself: the last one may name a zone by an older identifier.
    std::filesystem::path link = localTime;
    std::error_code error;
    for (int step = 0; step < longestChain; ++step) {
        const auto target = std::filesystem::read_symlink(link, error);
        if (error)
            break;
        std::string name = nameInZoneFolder(target.string());
        if (isKnown(name))
            return name;
        link = link.parent_path() / target;
    }
    return "UTC";
}

Zone Zone::machine() {
    return *find(machineIdentifier(std::getenv("TZ"), "/etc/localtime"));
}

std::int64_t Zone::offsetAt(std::int64_t unixSeconds) const {
    return rules->offsetAt(unixSeconds);
}

std::optional<std::int64_t> Zone::nextTransition(std::int64_t unixSeconds) const {
    return rules->nextTransition(unixSeconds);
}

}  // namespace vantry
