#pragma once

#include <optional>
#include <string>

#include <signal.h>
#include <sys/resource.h>

namespace vantry::support {

/// Sets or, with null, removes a variable of the environment until the end of the scope.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const char* value);
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;
    ~ScopedVariable();

private:
    static void put(const std::string& name, const std::optional<std::string>& value);

    std::string variable;
    std::optional<std::string> before;
};

/// Lets no file of this process grow beyond `bytes` until the end of the scope: a disk that is full.
class ScopedFileSizeLimit {
public:
    explicit ScopedFileSizeLimit(std::size_t bytes);
    ScopedFileSizeLimit(const ScopedFileSizeLimit&) = delete;
    ScopedFileSizeLimit& operator=(const ScopedFileSizeLimit&) = delete;
    ~ScopedFileSizeLimit();

private:
    struct rlimit limitBefore {};
    struct sigaction actionBefore {};
};

}  // namespace vantry::support
