#include "tests/support/ChildProcess.h"

#include <cerrno>
#include <system_error>

#include <sys/wait.h>
#include <unistd.h>

namespace vantry::support {
namespace {

constexpr unsigned nobody = 65534;

void sendAll(int pipeEnd, const std::string& text) {
    std::size_t sent = 0;
    while (sent < text.size()) {
        const auto count = ::write(pipeEnd, text.data() + sent, text.size() - sent);
        if (count <= 0)
            return;
        sent += static_cast<std::size_t>(count);
    }
}

std::string receiveAll(int pipeEnd) {
    std::string text;
    char buffer[4096];
    while (true) {
        const auto count = ::read(pipeEnd, buffer, sizeof buffer);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return text;
        text.append(buffer, static_cast<std::size_t>(count));
    }
}

}  // namespace

std::string inChildProcess(const std::function<std::string()>& work) {
    int ends[2];
    if (::pipe(ends) != 0)
        throw std::system_error(errno, std::generic_category(), "pipe");
    const pid_t child = ::fork();
    if (child == -1)
        throw std::system_error(errno, std::generic_category(), "fork");
    if (child == 0) {
        ::close(ends[0]);
        std::string answer;
        try {
            answer = work();
        } catch (const std::exception& failure) {
            answer = std::string("exception: ") + failure.what();
        }
        sendAll(ends[1], answer);
        ::_exit(0);
    }
    ::close(ends[1]);
    std::string answer = receiveAll(ends[0]);
    ::close(ends[0]);
    int status = 0;
    while (::waitpid(child, &status, 0) == -1 && errno == EINTR) {
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return "the child died with status " + std::to_string(status);
    return answer;
}

void becomeUnprivileged() {
    if (::geteuid() != 0)
        return;
    if (::setgid(nobody) != 0 || ::setuid(nobody) != 0)
        throw std::system_error(errno, std::generic_category(), "setuid");
}

}  // namespace vantry::support
