#include "cli/FilePrinter.h"

#include "cli/InputOutput.h"
#include "cli/TextOutput.h"

#include <algorithm>
#include <ostream>
#include <unistd.h>

namespace strativo {

namespace {

constexpr std::chrono::seconds quietTime{1};
constexpr std::chrono::milliseconds betweenProgress{200};

/// Shows progress only on a terminal that nothing else is printed to.
bool ShowsProgress(const std::ostream& err) {
    return IsTerminal(err) && isatty(STDOUT_FILENO) == 0;
}

} // namespace

FilePrinter::FilePrinter(const OutputFrame& outputFrame, bool flushEach, std::ostream& outStream,
                         std::ostream& errStream)
    : frame(outputFrame), flushes(flushEach), out(outStream), err(errStream),
      onTerminal(ShowsProgress(errStream)),
      nextProgress(std::chrono::steady_clock::now() + quietTime) {
    out << frame.start;
}

bool FilePrinter::Print(const FileOutput& output) {
    if (!output.err.empty()) {
        ClearProgress();
        err << output.err << std::flush;
    }
    if (!output.out.empty()) {
        out << (anyOutput ? frame.between : "") << output.out;
        anyOutput = true;
    }
    if (flushes)
        out.flush();
    ++files;
    status = std::max(status, output.status);
    return out.good();
}

void FilePrinter::ShowProgress() {
    const auto now = std::chrono::steady_clock::now();
    if (!onTerminal || now < nextProgress)
        return;
    nextProgress = now + betweenProgress;
    err << '\r' << programName << ": " << files << " files" << std::flush;
    progressShown = true;
}

void FilePrinter::End() {
    ClearProgress();
    out << (anyOutput ? frame.end : frame.endOfNone);
}

void FilePrinter::ClearProgress() {
    if (progressShown)
        err << "\r\x1B[K" << std::flush;
    progressShown = false;
}

} // namespace strativo
