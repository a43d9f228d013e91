#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace vantry::conformance {

/// Pretends that the machine stands in that zone, for as long as it lives.
class MachineZone {
public:
    explicit MachineZone(const std::string& identifier) {
        if (const char* tz = std::getenv("TZ"))
            before = tz;
        set(identifier);
    }
    MachineZone(const MachineZone&) = delete;
    MachineZone& operator=(const MachineZone&) = delete;
    ~MachineZone() { set(before); }

private:
    static void set(const std::optional<std::string>& tz) {
        if (tz)
            ::setenv("TZ", tz->c_str(), 1);
        else
            ::unsetenv("TZ");
        ::tzset();
    }

    std::optional<std::string> before;
};

}  // namespace vantry::conformance
