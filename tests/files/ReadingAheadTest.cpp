#include "files/ConstructionParser.h"
#include "files/FileAccess.h"
#include "files/ProjectSnapshot.h"
#include "support/ParseText.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <random>

namespace strativo {
namespace {

namespace fs = std::filesystem;

/// All that somebody could see of the reading of a file.
struct Outcome {
    std::string events;
    std::string project;
    int error = 0;
    int lastConstruction = 0;
    bool standardLineSeen = false;
    bool userLineSeen = false;
    bool formatSeen = false;
    unsigned activations = 0;
    std::size_t done = 0;

    bool operator==(const Outcome&) const = default;
};

void PrintTo(const Outcome& outcome, std::ostream* out) {
    *out << "events " << outcome.events << ", error " << outcome.error << ", last "
         << outcome.lastConstruction << ", read " << outcome.done << ", project of "
         << outcome.project.size() << " bytes";
}

Outcome Read(std::string_view bytes, ReadingAhead ahead) {
    Project project;
    OpenConstructionWindow(project);
    OpenConstructionWindow(project);
    OpenConstructionWindow(project);
    RemoveConstruction(project, 2);
    Outcome outcome;
    ParserEvents events;
    events.createConstruction = [&] {
        outcome.events += '+';
        CreateUnnamedConstruction(project);
    };
    events.layerRefused = [&] { outcome.events += '!'; };
    events.progress = [&](std::size_t done, std::size_t total) {
        EXPECT_LE(done, total);
        EXPECT_GE(done, outcome.done) << "progress never goes back";
        outcome.done = done;
    };
    try {
        const ParsedFile parsed = ParseConstructionFile(bytes, project, events, ahead);
        outcome.lastConstruction = parsed.lastConstruction;
        outcome.standardLineSeen = parsed.standardLineSeen;
        outcome.userLineSeen = parsed.userLineSeen;
        outcome.formatSeen = parsed.formatSeen;
    } catch (const RuntimeError& error) {
        outcome.error = static_cast<int>(error.Number());
    }
    outcome.project = WriteUnsealedSnapshot(project, {});
    outcome.activations = project.activations;
    return outcome;
}

void ExpectTheSame(const std::string& bytes, const std::string& what) {
    const Outcome inOrder = Read(bytes, {});
    EXPECT_EQ(Read(bytes, {.threads = 1, .pieceBytes = 1}), inOrder) << what;
    EXPECT_EQ(Read(bytes, {.threads = 3, .pieceBytes = 700}), inOrder) << what;
}

std::vector<std::string> FilesIn(const fs::path& folder) {
    std::vector<std::string> paths;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end());
    return paths;
}

class Damage {
public:
    explicit Damage(unsigned seed) : random(seed) {}

    /// Lines and marks that mean something stand where they do not belong.
    std::string Of(std::string bytes) {
        static const std::vector<std::string> marks = {"\n",
                                                       "\r",
                                                       "'",
                                                       "*",
                                                       "!",
                                                       "_ 1 = 12 0.1 0\r\n",
                                                       "!END\r\n",
                                                       "!EOF\r\n",
                                                       "!CONSTRUCTION 'A'\r\n",
                                                       "\n!CONSTRUCTION 'A",
                                                       "!TYPE TRANSPARENT\r\n",
                                                       "!WINDOW = 'G'\r\n",
                                                       "!WINDOW 2D = 'G'\r\n!TRANSMISSION =\r\n",
                                                       "!MATERIALS USER FILE = 'u.lby'\r\n",
                                                       "_ 1 = @12 0.1 0\r\n",
                                                       "_ 1 = 99999 0.1 0\r\n",
                                                       "\x1a"};
        for (std::size_t times = 1 + Below(4); times > 0 && !bytes.empty(); --times) {
            const std::size_t at = Below(bytes.size());
            if (Below(3) == 0)
                bytes.erase(at, 1 + Below(40));
            else
                bytes.insert(at, marks[Below(marks.size())]);
        }
        return bytes;
    }

private:
    std::size_t Below(std::size_t bound) { return random() % bound; }

    std::mt19937 random;
};

class ReadingAheadOf : public testing::TestWithParam<const char*> {
protected:
    std::vector<std::string> Files() const {
        return FilesIn(fs::path(STRATIVO_SOURCE) / GetParam());
    }
};

TEST_P(ReadingAheadOf, AFileChangesNothing) {
    EXPECT_FALSE(Files().empty());
    for (const std::string& path : Files())
        ExpectTheSame(ReadFileBytes(path), path);
}

TEST_P(ReadingAheadOf, ADamagedFileChangesNothing) {
    unsigned seed = 0;
    for (const std::string& path : Files()) {
        const std::string bytes = ReadFileBytes(path);
        for (int times = 0; times < 5; ++times) {
            ++seed;
            ExpectTheSame(Damage(seed).Of(bytes), path + ", seed " + std::to_string(seed));
        }
    }
}

TEST_P(ReadingAheadOf, DamagedFilesInARowChangeNothing) {
    std::string all;
    for (const std::string& path : Files())
        if (const std::string bytes = ReadFileBytes(path); bytes.size() < 10'000)
            all += "\n" + bytes;
    for (auto end = all.find("!EOF"); end != std::string::npos; end = all.find("!EOF"))
        all.erase(end, 4);
    for (unsigned seed = 1000; seed < 1100; ++seed)
        ExpectTheSame(Damage(seed).Of(all), "seed " + std::to_string(seed));
}

INSTANTIATE_TEST_SUITE_P(Folders, ReadingAheadOf,
                         testing::Values("data/examples", "fuzz/corpus/ConstructionFile",
                                         "fuzz/corpus/WriteRead"));

TEST(ReadingAhead, LinesInAnyOrderChangeNothing) {
    static const std::vector<std::string> vocabulary = {"!CONSTRUCTION 'A'",
                                                        "!CONSTRUCTION 'B' * of this one",
                                                        "!CONSTRUCTION",
                                                        "!CONSTRUCTION '!EOF'",
                                                        "!TYPE OPAQUE",
                                                        "!TYPE TRANSPARENT",
                                                        "!PARTS",
                                                        "_ 1 = 12 0.1 0",
                                                        "_ 2 = 12 0.1 0 0.5",
                                                        "_ 3 = @7 0.2 0 0.25",
                                                        "_ 4 = 30 0 0 * name",
                                                        "!END",
                                                        "!END",
                                                        "",
                                                        "* a remark",
                                                        "!WINDOW = 'G/H' * is none",
                                                        "!WINDOW = 'G'",
                                                        "!WINDOW 2D = 'H'",
                                                        "!TRANSMISSION =",
                                                        "0.5, 0.4, 0.3",
                                                        "}",
                                                        "!MATERIALS FILE = 's.lby'",
                                                        "!EOF"};
    int withErrors = 0;
    int withRefused = 0;
    for (unsigned seed = 1; seed <= 400; ++seed) {
        std::mt19937 random(seed);
        const std::size_t lines = 30 + random() % 300;
        // Few seeds hold what ends the reading or needs a library's line.
        const std::size_t words = vocabulary.size() - (seed % 4 == 0 ? 0 : 1 + seed % 8);
        std::string text = "* head\n";
        for (std::size_t line = 0; line < lines; ++line) {
            const bool isPart = random() % 2 == 0;
            text += vocabulary[isPart ? 7 + random() % 3 : random() % words] + '\n';
            while (isPart && seed % 5 == 0 && random() % 9 != 0)
                text += "_ 1 = 12 0.1 0\n";
        }
        ExpectTheSame(text, "seed " + std::to_string(seed));
        const Outcome outcome = Read(text, {});
        withErrors += outcome.error != 0 ? 1 : 0;
        withRefused += outcome.events.find('!') != std::string::npos ? 1 : 0;
    }
    EXPECT_GT(withErrors, 10);
    EXPECT_GT(withRefused, 10);
}

TEST(ReadingAhead, IsForFilesThatTakeTheirTime) {
    EXPECT_EQ(UsualReadingAhead(500'000).threads, 0U);
    EXPECT_GT(UsualReadingAhead(0).pieceBytes, 0U);
}

} // namespace
} // namespace strativo
