#include "cli/ManyFiles.h"

#include "cli/ExitStatus.h"
#include "cli/FileNames.h"
#include "cli/FilePrinter.h"
#include "cli/Interruption.h"
#include "cli/UsageRules.h"

#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <sstream>
#include <system_error>
#include <thread>

namespace strativo {

namespace {

FileOutput DoWork(const FileWork& work, const std::string& file) {
    FileOutput output;
    std::ostringstream out;
    std::ostringstream err;
    output.status = StatusOf(work, file, out, err);
    output.out = std::move(out).str();
    output.err = std::move(err).str();
    return output;
}

/// Worker threads take the files in turn; the caller's thread prints their output.
class WorkGroup {
public:
    WorkGroup(FileNames& source, const FileWork& fileWork, int jobs)
        : names(source), work(fileWork), most(4 * static_cast<std::size_t>(jobs)) {
        threads.reserve(static_cast<std::size_t>(jobs));
        try {
            for (int job = 0; job < jobs; ++job)
                threads.emplace_back([this] { Work(); });
        } catch (const std::system_error&) {
            // As many as there are do the work.
        }
    }

    ~WorkGroup() {
        Stop();
        for (std::thread& thread : threads)
            thread.join();
    }
    WorkGroup(const WorkGroup&) = delete;
    WorkGroup& operator=(const WorkGroup&) = delete;

    /// False where the system starts no threads.
    bool CanWork() const { return !threads.empty(); }

    /// Prints the outputs until the last file, a failure to print, or an interruption.
    void Print(FilePrinter& printer) {
        constexpr std::chrono::milliseconds betweenLooks{100};
        std::unique_lock lock(mutex);
        while (!IsDone()) {
            const auto next = finished.find(printed);
            if (next == finished.end()) {
                changed.wait_for(lock, betweenLooks);
                printer.ShowProgress();
                continue;
            }
            const FileOutput output = std::move(next->second);
            finished.erase(next);
            lock.unlock();
            const bool goesOn = printer.Print(output);
            lock.lock();
            ++printed;
            stopped = stopped || !goesOn;
            changed.notify_all();
        }
        if (!failure.empty())
            throw std::runtime_error(failure);
    }

private:
    /// After an interruption, waits for the files in progress and prints them too.
    bool IsDone() const { return stopped || (noMoreNames && printed == taken); }

    void Stop() {
        const std::lock_guard lock(mutex);
        stopped = true;
        changed.notify_all();
    }

    void Work() {
        for (;;) {
            std::size_t number = 0;
            const std::optional<std::string> file = TakeFile(number);
            if (!file)
                return;
            FileOutput output = DoWork(work, *file);
            const std::lock_guard lock(mutex);
            finished.emplace(number, std::move(output));
            if (number == printed) // later ones wait until it is their turn
                changed.notify_all();
        }
    }

    /// Waits until there is room for another finished file, then takes the next file and its
    /// number.
    std::optional<std::string> TakeFile(std::size_t& number) {
        const std::lock_guard oneAtATime(namesMutex);
        {
            std::unique_lock lock(mutex);
            changed.wait(lock, [&] { return stopped || taken - printed < most; });
            if (stopped || noMoreNames)
                return std::nullopt;
        }
        const std::optional<std::string> file = NextName();
        const std::lock_guard lock(mutex);
        if (file) {
            number = taken++;
        } else {
            noMoreNames = true;
            changed.notify_all();
        }
        return file;
    }

    std::optional<std::string> NextName() {
        try {
            return IsInterrupted() ? std::nullopt : names.Next();
        } catch (const std::exception& error) {
            const std::lock_guard lock(mutex);
            failure = error.what();
            return std::nullopt;
        }
    }

    FileNames& names;
    const FileWork& work;
    const std::size_t most; ///< greatest number of files begun and not yet printed
    std::mutex namesMutex;  ///< held while waiting for a name
    std::mutex mutex;       ///< protects all that follows
    std::condition_variable changed;
    std::map<std::size_t, FileOutput> finished; ///< by number, not yet printed
    std::size_t taken = 0;
    std::size_t printed = 0;
    bool noMoreNames = false;
    bool stopped = false;
    std::string failure; ///< why the list could not be read
    std::vector<std::thread> threads;
};

void RunInTurn(FileNames& names, const FileWork& work, FilePrinter& printer) {
    for (bool goesOn = true; goesOn && !IsInterrupted();) {
        const std::optional<std::string> file = names.Next();
        if (!file)
            return;
        goesOn = printer.PrintAsItComes(work, *file);
        printer.ShowProgress();
    }
}

} // namespace

int RunOnFiles(const Invocation& call, const OutputFrame& frame, const FileWork& work,
               std::ostream& out, std::ostream& err) {
    const InterruptionGuard guard;
    FileNames names(call, IsInterrupted);
    const std::size_t jobs = call.filesFrom.empty()
                                 ? std::min<std::size_t>(JobsOf(call), call.operands.size())
                                 : JobsOf(call);
    FilePrinter printer(frame, call.jsonLines, out, err);
    std::optional<WorkGroup> group;
    if (jobs > 1)
        group.emplace(names, work, static_cast<int>(jobs));
    if (group && group->CanWork())
        group->Print(printer);
    else
        RunInTurn(names, work, printer);
    printer.End();
    return IsInterrupted() ? exitInterrupted : printer.Status();
}

std::vector<std::string> AllFiles(const Invocation& call) {
    FileNames names(call, IsInterrupted);
    std::vector<std::string> files;
    while (std::optional<std::string> file = names.Next())
        files.push_back(std::move(*file));
    return files;
}

} // namespace strativo
