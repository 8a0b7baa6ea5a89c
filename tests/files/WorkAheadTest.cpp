#include "files/WorkAhead.h"

#include "benchmarks/ConstructionFileGenerator.h"
#include "benchmarks/GeneratedProject.h"
#include "calc/Relink.h"
#include "files/ConstructionWriter.h"
#include "files/Findings.h"

#include <atomic>
#include <gmock/gmock.h>
#include <sched.h>
#include <stdexcept>

namespace strativo {
namespace {

using testing::ElementsAre;

TEST(WorkAhead, GivesTheResultsInTheirOrderHoweverManyHelp) {
    for (const unsigned helpers : {0U, 1U, 5U})
        for (const std::size_t distance : {1U, 3U, 1000U}) {
            WorkAhead<std::size_t> squares(
                200, [](std::size_t number) { return number * number; }, helpers, distance);
            for (std::size_t number = 0; number < 200; ++number)
                ASSERT_EQ(squares.Take(number), number * number);
        }
}

TEST(WorkAhead, DoesEachTaskAtMostOnceAndMayLeaveSomeOut) {
    for (const unsigned helpers : {0U, 3U}) {
        std::vector<std::atomic<int>> times(300);
        {
            const auto count = [&](std::size_t number) { return ++times[number]; };
            WorkAhead<int> work(times.size(), count, helpers, times.size());
            for (std::size_t number = 0; number < 250; number += 10)
                EXPECT_EQ(work.Take(number), 1);
        }
        EXPECT_TRUE(std::all_of(times.begin(), times.end(), [](int each) { return each <= 1; }));
    }
}

TEST(WorkAhead, DoesNotRunFurtherAheadThanAllowed) {
    constexpr std::size_t distance = 4;
    std::atomic<std::size_t> taken = 0;
    std::atomic<bool> isTooFar = false;
    const auto task = [&](std::size_t number) {
        // The number is taken by then or lies no further ahead.
        isTooFar = isTooFar || number > taken + distance;
        return number;
    };
    WorkAhead<std::size_t> work(500, task, 3, distance);
    for (std::size_t number = 0; number < 500; ++number) {
        work.Take(number);
        taken = number + 1;
    }
    EXPECT_FALSE(isTooFar);
}

TEST(WorkAhead, ThrowsWhatATaskThrewWhenItsResultIsTaken) {
    const auto task = [](std::size_t number) {
        if (number % 2 == 1)
            throw std::runtime_error(std::to_string(number));
        return number;
    };
    WorkAhead<std::size_t> work(10, task, 2, 10);
    std::vector<std::string> thrown;
    for (std::size_t number = 0; number < 6; ++number)
        try {
            work.Take(number);
        } catch (const std::runtime_error& error) {
            thrown.emplace_back(error.what());
        }
    EXPECT_THAT(thrown, ElementsAre("1", "3", "5"));
}

/// Lets this thread use one processor only, as long as it lives.
class OneProcessor {
public:
    OneProcessor() {
        sched_getaffinity(0, sizeof before, &before);
        cpu_set_t one;
        CPU_ZERO(&one);
        int first = 0;
        while (!CPU_ISSET(first, &before))
            ++first;
        CPU_SET(first, &one);
        sched_setaffinity(0, sizeof one, &one);
    }
    ~OneProcessor() { sched_setaffinity(0, sizeof before, &before); }
    OneProcessor(const OneProcessor&) = delete;
    OneProcessor& operator=(const OneProcessor&) = delete;

private:
    cpu_set_t before{};
};

TEST(HelpingThreads, AreNoneOnOneProcessor) {
    const OneProcessor one;
    EXPECT_EQ(HelpingThreads(), 0U);
}

TEST(LargeProject, GivesTheSameOnOneProcessorAsOnSeveral) {
    if (HelpingThreads() == 0)
        GTEST_SKIP() << "this machine has one processor only";
    GeneratedFile content;
    content.constructions = 3000;
    const auto project = StartedProject();
    Parse(MakeConstructionFile(content), *project);
    RelinkLayers(*project);
    // Some mistakes, and slots that are not in use.
    for (int number = 7; number < 3000; number += 100) {
        project->constructions[number].layers.Edit(2).thickness = 0;
        project->constructions[number + 1].window.open = false;
        project->constructions[number + 2].name = project->constructions[number].name;
        project->glassTypes[1 + number / 10].name.clear();
    }
    const std::string text = FormatConstructionFile(*project);
    const std::vector<Finding> findings = FindingsOf(*project);
    const OneProcessor one;
    EXPECT_TRUE(FormatConstructionFile(*project) == text);
    const std::vector<Finding> again = FindingsOf(*project);
    ASSERT_EQ(again.size(), findings.size());
    EXPECT_GE(findings.size(), 60U);
    for (std::size_t i = 0; i < again.size(); ++i)
        EXPECT_EQ(again[i].rule + again[i].text, findings[i].rule + findings[i].text);
}

} // namespace
} // namespace strativo
