#include "EditLog.h"

#include <chrono>
#include <fcntl.h>
#include <fstream>
#include <stdexcept>
#include <unistd.h>

namespace strativo::monkey {

std::int64_t SteadyTime() {
    return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::nanoseconds(1);
}

EditLog::EditLog(const std::string& path)
    : file(open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600)) {
    if (file < 0)
        throw std::runtime_error("cannot write " + path);
}

EditLog::~EditLog() {
    close(file);
}

void EditLog::Note(std::uint64_t content, bool isUnsaved) {
    if (last.time != 0 && last.content == content && last.isUnsaved == isUnsaved)
        return;
    last = {SteadyTime(), content, isUnsaved};
    const std::string line =
        std::to_string(last.time) + ' ' + std::to_string(content) + (isUnsaved ? " 1\n" : " 0\n");
    if (write(file, line.data(), line.size()) < 0)
        throw std::runtime_error("cannot write the log");
}

std::vector<LoggedContent> EditLog::Read(const std::string& path) {
    std::vector<LoggedContent> lines;
    std::ifstream in(path);
    for (LoggedContent line; in >> line.time >> line.content >> line.isUnsaved;)
        lines.push_back(line);
    return lines;
}

} // namespace strativo::monkey
