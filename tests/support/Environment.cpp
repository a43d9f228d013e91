#include "tests/support/Environment.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace vantry::support {

ScopedVariable::ScopedVariable(const char* name, const char* value)
    : variable(name) {
    if (const char* now = std::getenv(name); now != nullptr)
        before = now;
    put(variable, value != nullptr ? std::optional<std::string>(value) : std::nullopt);
}

ScopedVariable::~ScopedVariable() {
    put(variable, before);
}

void ScopedVariable::put(const std::string& name, const std::optional<std::string>& value) {
    if (value)
        ::setenv(name.c_str(), value->c_str(), 1);
    else
        ::unsetenv(name.c_str());
}

ScopedFileSizeLimit::ScopedFileSizeLimit(std::size_t bytes) {
    struct sigaction ignore {};
    ignore.sa_handler = SIG_IGN;
    ::sigaction(SIGXFSZ, &ignore, &actionBefore);
    ::getrlimit(RLIMIT_FSIZE, &limitBefore);
    struct rlimit limit = limitBefore;
    limit.rlim_cur = bytes;
    if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
        throw std::system_error(errno, std::generic_category(), "setrlimit");
}

ScopedFileSizeLimit::~ScopedFileSizeLimit() {
    ::setrlimit(RLIMIT_FSIZE, &limitBefore);
    ::sigaction(SIGXFSZ, &actionBefore, nullptr);
}

}  // namespace vantry::support
