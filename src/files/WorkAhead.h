#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <vector>

namespace strativo {

/// Threads beside the present one that are worth starting for work that takes milliseconds: one for
/// each further processor that the program may use, 3 at the most; 0 where that is not known.
unsigned HelpingThreads();

/// Does numbered tasks on several processors, for one thread that takes their results in ascending
/// order and may leave some out. The tasks run at the same time as each other and as that thread,
/// so they only read what others may read.
template <class Result>
class WorkAhead {
public:
    using Task = std::function<Result(std::size_t number)>;

    /// `distance`: how far the tasks may run ahead of the results taken. There are no more helpers
    /// than tasks that they can take off this thread.
    WorkAhead(std::size_t count, Task work, unsigned helpers, std::size_t distance)
        : task(std::move(work)), results(count), reach(distance) {
        try {
            for (std::size_t i = 0; i < helpers && i + 1 < count; ++i)
                threads.emplace_back([this] { Help(); });
        } catch (const std::system_error&) {
            // Without a thread this one does the work.
        }
    }
    ~WorkAhead() {
        Skip(results.size());
        for (std::thread& thread : threads)
            thread.join();
    }
    WorkAhead(const WorkAhead&) = delete;
    WorkAhead& operator=(const WorkAhead&) = delete;

    /// The result of a task that was not taken or left out before; throws what the task threw.
    /// While another thread is at that task, this one does the next ones.
    Result Take(std::size_t number) {
        Skip(number);
        std::unique_lock lock(mutex);
        while (!results[number].isDone)
            if (!DoNext(lock))
                done.wait(lock);
        taken = number + 1;
        lock.unlock();
        taking.notify_all();
        if (results[number].failure)
            std::rethrow_exception(results[number].failure);
        Result result = std::move(*results[number].value);
        results[number].value.reset();
        return result;
    }

private:
    struct Outcome {
        std::optional<Result> value;
        std::exception_ptr failure;
        bool isDone = false;
    };

    /// Nobody will take the results before that number.
    void Skip(std::size_t number) {
        {
            const std::lock_guard lock(mutex);
            next = std::max(next, number);
            taken = std::max(taken, number);
        }
        taking.notify_all();
    }

    void Help() {
        std::unique_lock lock(mutex);
        while (next < results.size())
            if (!DoNext(lock))
                taking.wait(lock);
    }

    /// False when no task may be begun now.
    bool DoNext(std::unique_lock<std::mutex>& lock) {
        if (next >= results.size() || next >= taken + reach)
            return false;
        const std::size_t number = next++;
        lock.unlock();
        Outcome outcome;
        try {
            outcome.value = task(number);
        } catch (...) {
            outcome.failure = std::current_exception();
        }
        outcome.isDone = true;
        lock.lock();
        results[number] = std::move(outcome);
        done.notify_one();
        return true;
    }

    const Task task;
    std::mutex mutex;
    std::condition_variable done;   ///< a task
    std::condition_variable taking; ///< a result was taken, so that others may be worked out
    std::vector<Outcome> results;
    std::size_t reach;
    std::size_t next = 0;  ///< task to be begun
    std::size_t taken = 0; ///< the results before it were taken
    std::vector<std::thread> threads;
};

} // namespace strativo
