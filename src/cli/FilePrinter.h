#pragma once

#include "cli/ManyFiles.h"

#include <chrono>
#include <iosfwd>
#include <string>

namespace strativo {

/// The output of the work for one file.
struct FileOutput {
    std::string out;
    std::string err;
    int status = 0;
};

/// Does the work; an exception is reported to err and fails the file.
int StatusOf(const FileWork& work, const std::string& file, std::ostream& out, std::ostream& err);

/// Prints the outputs of files one after the other and, on a terminal, how many have been done.
class FilePrinter {
public:
    FilePrinter(const OutputFrame& outputFrame, bool flushEach, std::ostream& outStream,
                std::ostream& errStream);

    /// False when standard output accepts no more.
    bool Print(const FileOutput& output);
    /// Does the work for a file and prints its output as it comes: that of a large file takes no
    /// memory. False when standard output accepts no more.
    bool PrintAsItComes(const FileWork& work, const std::string& file);
    /// Shows the progress line if it is time for it.
    void ShowProgress();
    void End();
    /// The highest exit status of the files.
    int Status() const { return status; }

private:
    bool Done(int fileStatus);
    void BeginOutput();
    void ClearProgress();

    const OutputFrame& frame;
    bool flushes;
    std::ostream& out;
    std::ostream& err;
    bool onTerminal;
    bool progressShown = false;
    bool anyOutput = false;
    int files = 0;
    int status = 0;
    std::chrono::steady_clock::time_point nextProgress;
};

} // namespace strativo
