#include "cli/FilePrinter.h"

#include "cli/ExitStatus.h"
#include "cli/InputOutput.h"
#include "cli/TextOutput.h"

#include <algorithm>
#include <ostream>
#include <streambuf>
#include <unistd.h>
#include <utility>
#include <vector>

namespace strativo {

namespace {

constexpr std::chrono::seconds quietTime{1};
constexpr std::chrono::milliseconds betweenProgress{200};

/// Passes everything on to another stream in large pieces, and does something before the first.
class PassingOn : public std::streambuf {
public:
    PassingOn(std::ostream& to, std::function<void()> beforeAll)
        : target(to), before(std::move(beforeAll)) {}

protected:
    int_type overflow(int_type byte) override {
        if (sync() != 0)
            return traits_type::eof();
        if (buffer.empty())
            buffer.resize(pieceSize);
        setp(buffer.data(), buffer.data() + buffer.size());
        return traits_type::eq_int_type(byte, traits_type::eof())
                   ? traits_type::not_eof(byte)
                   : sputc(traits_type::to_char_type(byte));
    }
    int sync() override {
        if (pptr() == pbase())
            return 0;
        if (!std::exchange(begun, true))
            before();
        target.write(pbase(), pptr() - pbase());
        setp(pbase(), epptr());
        return target ? 0 : -1;
    }

private:
    static constexpr std::size_t pieceSize = 1 << 14;

    std::ostream& target;
    std::function<void()> before;
    std::vector<char> buffer;
    bool begun = false;
};

/// Shows progress only on a terminal that nothing else is printed to.
bool ShowsProgress(const std::ostream& err) {
    return IsTerminal(err) && isatty(STDOUT_FILENO) == 0;
}

} // namespace

int StatusOf(const FileWork& work, const std::string& file, std::ostream& out, std::ostream& err) {
    try {
        return work(file, out, err);
    } catch (const std::exception& error) {
        PrintError(err, PathToUtf8(file) + ": " + error.what());
        return exitFailure;
    }
}

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
        BeginOutput();
        out << output.out;
    }
    return Done(output.status);
}

bool FilePrinter::PrintAsItComes(const FileWork& work, const std::string& file) {
    PassingOn toOut(out, [this] { BeginOutput(); });
    PassingOn toErr(err, [this] { ClearProgress(); });
    std::ostream fileOut(&toOut);
    std::ostream fileErr(&toErr);
    fileErr << std::unitbuf; // a message comes before the output that follows it
    const int fileStatus = StatusOf(work, file, fileOut, fileErr);
    fileOut.flush();
    err.flush();
    return Done(fileStatus);
}

bool FilePrinter::Done(int fileStatus) {
    if (flushes)
        out.flush();
    ++files;
    status = std::max(status, fileStatus);
    return out.good();
}

void FilePrinter::BeginOutput() {
    if (std::exchange(anyOutput, true))
        out << frame.between;
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
