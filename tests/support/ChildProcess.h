#pragma once

#include <functional>
#include <string>

namespace vantry::support {

/// Runs `work` in a copy of this process and answers the text that it returned. An exception or a crash of
/// the child is answered as a text that says so.
[[nodiscard]] std::string inChildProcess(const std::function<std::string()>& work);

/// For use in a child process: gives up all rights of a superuser for good. Throws when that fails.
void becomeUnprivileged();

}  // namespace vantry::support
