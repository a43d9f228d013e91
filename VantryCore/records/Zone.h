#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vantry {

/// A time zone with a known identifier: the IANA name and the rules behind it.
///
/// The rules come from the system's zone files (RFC 8536), which are kept up to date, else from ICU. An
/// identifier is known when the system has a zone file of that name or ICU has it as a system zone.
/// Zones are cheap to copy. The rules are read once for each identifier and thread.
class Zone {
public:
    /// The zone of that identifier, or nothing when it is unknown. "CST-8", paths and ".." are unknown.
    [[nodiscard]] static std::optional<Zone> find(std::string_view identifier);
    [[nodiscard]] static bool isKnown(std::string_view identifier) { return find(identifier).has_value(); }
    /// The machine's own zone; always a known identifier.
    [[nodiscard]] static Zone machine();
    /// Which identifier stands for a machine with that value of the variable TZ (null when unset) and that
    /// local time file: a known TZ, else the zone that the file links to, else "UTC".
    [[nodiscard]] static std::string machineIdentifier(const char* tz,
                                                       const std::filesystem::path& localTime);

    [[nodiscard]] const std::string& identifier() const noexcept { return name; }
    /// Seconds that local time is ahead of UTC at that second of Unix time.
    [[nodiscard]] std::int64_t offsetAt(std::int64_t unixSeconds) const;
    /// The first change of the rules behind that second of Unix time, if there is one.
    [[nodiscard]] std::optional<std::int64_t> nextTransition(std::int64_t unixSeconds) const;

    struct Rules;

private:
    Zone(std::string identifier, std::shared_ptr<const Rules> zoneRules);

    std::string name;
    std::shared_ptr<const Rules> rules;
};

}  // namespace vantry
