#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace strativo::monkey {

/// What the project was at a time, as the random user saw it.
struct LoggedContent {
    std::int64_t time = 0;     ///< nanoseconds of the steady clock, the same for all processes
    std::uint64_t content = 0; ///< digest
    bool isUnsaved = false;    ///< it is not what the file holds
};

std::int64_t SteadyTime();

/// Adds a line to a file after each event. The file outlives the process, however that ends.
class EditLog {
public:
    explicit EditLog(const std::string& path);
    ~EditLog();
    EditLog(const EditLog&) = delete;
    EditLog& operator=(const EditLog&) = delete;

    /// The content at this moment; the same as before is written only once.
    void Note(std::uint64_t content, bool isUnsaved);

    static std::vector<LoggedContent> Read(const std::string& path);

private:
    int file;
    LoggedContent last;
};

} // namespace strativo::monkey
