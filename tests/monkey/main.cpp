#include "Kills.h"
#include "Monkey.h"

#include <QApplication>
#include <QFont>

#include <charconv>
#include <iomanip>
#include <iostream>
#include <limits>
#include <string_view>

namespace {

using namespace strativo::monkey;

struct Options {
    unsigned seed = 1;
    int seeds = 1;
    int events = 5000;
    bool verbose = false;
    KillOptions killing;
};

template <class Number>
bool Take(const char* text, Number& number) {
    const std::string_view digits(text == nullptr ? "" : text);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() && end == digits.data() + digits.size() && number > 0;
}

bool Read(char** arguments, Options& options) {
    for (char** argument = arguments + 1; *argument != nullptr; ++argument) {
        const std::string_view name(*argument);
        bool isGood = true;
        if (name == "--verbose")
            options.verbose = true;
        else if (name == "--seed")
            isGood = Take(*++argument, options.seed);
        else if (name == "--seeds")
            isGood = Take(*++argument, options.seeds);
        else if (name == "--events")
            isGood = Take(*++argument, options.events);
        else if (name == "--kills")
            isGood = Take(*++argument, options.killing.kills);
        else if (name == "--after-last")
            isGood = Take(*++argument, options.killing.afterLast);
        else if (name == "--after-first")
            isGood = Take(*++argument, options.killing.afterFirst);
        else
            isGood = false;
        if (!isGood)
            return false;
    }
    return true;
}

using Counts = std::map<std::string, int>;

void Add(Counts& sum, const Counts& more) {
    for (const auto& [name, count] : more)
        sum[name] += count;
}

void Print(const char* heading, const Counts& counts) {
    std::cout << '\n' << heading << '\n';
    for (const auto& [name, count] : counts)
        std::cout << std::setw(9) << count << "  " << name << '\n';
}

std::vector<std::string> WantedKinds() {
    std::vector<std::string> names;
    for (const EventKinds* kinds :
         {&KeyEvents(), &MouseEvents(), &DragEvents(), &CommandEvents(), &EndEvents(),
          &PopupEvents(), &BoxEvents(), &PromptEvents(), &EditorEvents(), &HelpEvents()})
        for (const EventKind& kind : *kinds)
            names.emplace_back(kind.name);
    return names;
}

/// A run that says nothing about some part of the program is no proof for it.
bool HasAll(const Counts& counts, const std::vector<std::string>& wanted) {
    bool isWhole = true;
    for (const std::string& name : wanted)
        if (counts.count(name) == 0) {
            std::cerr << "did not occur: " << name << '\n';
            isWhole = false;
        }
    return isWhole;
}

int Run(const Options& options) {
    constexpr int enough = 10'000; // events; fewer are only to repeat a failure
    Counts kinds;
    Counts states;
    for (unsigned seed = options.seed; seed < options.seed + options.seeds; ++seed) {
        Journal journal(seed, options.verbose);
        Monkey(seed, options.events, journal).Run();
        std::cout << "seed " << seed << ": " << journal.Events() << " events\n" << std::flush;
        Add(kinds, journal.Kinds());
        Add(states, journal.States());
    }
    Print("Events", kinds);
    Print("States, boxes and deeds", states);
    const bool allKinds = HasAll(kinds, WantedKinds());
    const bool allStates = HasAll(states, WantedStates());
    return (allKinds && allStates) || options.events * options.seeds < enough ? 0 : 1;
}

/// Nothing but what the plugin without a screen cannot do is worth no word.
void HandleToolkitMessage(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (message.startsWith(QLatin1String("This plugin does not support")))
        return;
    std::cerr << "toolkit: " << message.toStdString() << '\n';
}

} // namespace

/// What is there before the first window. The resources' macro stands in no namespace.
static void PrepareToolkit() {
    Q_INIT_RESOURCE(strativo);
    QFont font = QApplication::font();
    font.setPointSizeF(8.25);
    QApplication::setFont(font);
    QApplication::setKeyboardInputInterval(0); // keys in lists do not depend on the machine's speed
    qInstallMessageHandler(HandleToolkitMessage);
}

namespace {

/// A user who is never done, with all his files in the folder.
void WorkWithoutEnd(unsigned seed, const std::string& folder) {
    setenv("TMPDIR", folder.c_str(), 1);
    setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    std::string name = "window-monkey";
    char* arguments[] = {name.data(), nullptr};
    int count = 1;
    QApplication application(count, arguments);
    PrepareToolkit();
    WatchForCrashes();
    Journal journal(seed, false);
    EditLog log(LogIn(folder));
    Monkey(seed, std::numeric_limits<int>::max(), journal, &log).Run();
}

} // namespace

/// window-monkey [--seed N] [--seeds COUNT] [--events M] [--verbose]: lets a random user loose on
/// the windows, M events for each seed from N on.
/// window-monkey --kills COUNT [--seed N] [--after-last MS] [--after-first MS]: kills that many
/// users at random times, and tells what was lost of their work.
int main(int argc, char** argv) {
    Options options;
    if (!Read(argv, options)) {
        std::cerr << "usage: window-monkey [--seed N] [--seeds COUNT] [--events M] [--verbose]\n"
                     "       window-monkey --kills COUNT [--seed N] [--after-last MS] "
                     "[--after-first MS]\n";
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    options.killing.seed = options.seed;
    if (options.killing.kills > 0)
        return KillRandomly(options.killing, WorkWithoutEnd) == 0 ? 0 : 1;
    QApplication application(argc, argv);
    PrepareToolkit();
    WatchForCrashes();
    return Run(options);
}
