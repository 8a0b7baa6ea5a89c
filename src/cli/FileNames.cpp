#include "cli/FileNames.h"

#include "cli/InputOutput.h"
#include "text/Windows1252.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <unistd.h>
#include <utility>

namespace strativo {

namespace {

[[noreturn]] void ThrowAbout(const std::string& path) {
    throw std::runtime_error(PathToUtf8(path) + ": " + std::strerror(errno));
}

} // namespace

FileNames::FileNames(const Invocation& call, IsStopped isStopped)
    : invocation(call), stopped(std::move(isStopped)) {
    if (call.filesFrom.empty())
        return;
    descriptor = call.filesFrom == standardStream
                     ? dup(STDIN_FILENO)
                     : open(call.filesFrom.c_str(), // waits for nobody to write to a FIFO
                            O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (descriptor < 0)
        ThrowAbout(call.filesFrom);
}

FileNames::~FileNames() {
    if (descriptor >= 0)
        close(descriptor);
}

std::optional<std::string> FileNames::Next() {
    if (operand < invocation.operands.size())
        return invocation.operands[operand++];
    for (;;) {
        std::optional<std::string> name = NextOfList();
        if (!name || !name->empty())
            return name;
    }
}

std::optional<std::string> FileNames::NextOfList() {
    const char end = invocation.nullEnds ? '\0' : '\n';
    std::size_t searched = taken;
    for (;;) {
        const auto found = buffer.find(end, searched);
        const bool isLast = found == std::string::npos;
        if (isLast)
            buffer.erase(0, std::exchange(taken, 0)); // a list may go on for ever
        searched = buffer.size();
        if (isLast && ReadMore())
            continue;
        if (isLast && taken == buffer.size())
            return std::nullopt;
        std::string name = buffer.substr(taken, found - taken);
        taken = isLast ? buffer.size() : found + 1;
        if (!invocation.nullEnds && name.ends_with('\r'))
            name.pop_back();
        return name;
    }
}

bool FileNames::ReadMore() {
    constexpr int milliseconds = 100; // between checks for an interruption
    std::array<char, 1 << 16> piece{};
    while (descriptor >= 0 && !stopped()) {
        pollfd waiting = {descriptor, POLLIN, 0};
        if (poll(&waiting, 1, milliseconds) <= 0)
            continue;
        const ssize_t count = read(descriptor, piece.data(), piece.size());
        if (count < 0 && (errno == EINTR || errno == EAGAIN))
            continue;
        if (count < 0)
            ThrowAbout(invocation.filesFrom);
        if (count > 0) {
            buffer.append(piece.data(), static_cast<std::size_t>(count));
            return true;
        }
        close(std::exchange(descriptor, -1));
    }
    return false;
}

} // namespace strativo
