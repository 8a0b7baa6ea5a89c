#include "benchmarks/Clock.h"
#include "benchmarks/NoPrompts.h"
#include "edit/ConstructionEntry.h"
#include "ui/Appearance.h"
#include "ui/STRATVMD.h"
#include "ui/UValue.h"
#include "ui/WindowArea.h"
#include "ui/WorkWatch.h"

#include <QAbstractEventDispatcher>
#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <malloc.h>
#include <stdexcept>
#include <unistd.h>
#include <utility>

// Drives the windows as a user does and prints how long each step takes until all is painted.

namespace strativo {
namespace {

constexpr char usage[] =
    "usage: window-steps ROUNDS FILE-OF-10 FILE-OF-100 FILE-OF-1000 FILE-OF-5000\n"
    "Drives the windows and prints for each round after the first how long steps take until\n"
    "everything is painted (microseconds).\n";

/// Does what a running event loop would do, also delete what is to be deleted.
void Settle() {
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents))
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

template <class Action>
double TimeOf(const Action& action) {
    Settle();
    const long long start = Nanoseconds();
    action();
    Settle();
    return static_cast<double>(Nanoseconds() - start) / 1000;
}

/// Nanoseconds for which this thread alone had the processor.
long long ThreadTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

class WindowSteps {
public:
    explicit WindowSteps(char** fileNames) : files(fileNames) {
        window.MDIForm_Load("");
        if (!QTest::qWaitForWindowActive(&window))
            throw std::runtime_error("the window did not become active");
        Settle();
    }

    void Round(bool print) {
        MeasureFew();
        Open(1, "open100");
        Open(2, "open1000");
        MeasureActivation("again1000", 1000);
        MeasureFirstActivation();
        MeasureDigits(1000);
        Note("enter", EnterTime(1000));
        MeasureRemoval();
        OpenTime(0); // right before, so that both sides find the machine alike
        MeasureEntryAndUndo(10);
        Open(3, "open5000");
        MeasureEntryAndUndo(5000);
        MeasureStall();
        if (print)
            std::printf("%s\n", line.c_str());
        line.clear();
    }

private:
    void Note(const char* key, double value) {
        line += std::string(line.empty() ? "" : " ") + key + '=' + std::to_string(value);
    }

    void RemoveAll() {
        window.TheProject().changed = false; // nobody is here to answer the question
        window.findChild<QAction*>(QStringLiteral("NewProject"))->trigger();
    }

    double OpenTime(int file) {
        RemoveAll();
        return TimeOf([&] { DropFile(files[file]); });
    }

    void Open(int file, const char* key) { Note(key, OpenTime(file)); }

    void DropFile(const char* path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromLocal8Bit(path))});
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window, &enter);
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window, &drop);
    }

    double ActivationTime(int number) {
        return TimeOf([&] { window.Area().Activate(number); });
    }

    /// Ten windows are gone through, so that all of them have been seen before.
    void MeasureActivation(const char* key, int last) {
        for (int number = last - 9; number <= last; ++number)
            ActivationTime(number);
        std::vector<double> times;
        for (int i = 0; i < 30; ++i)
            times.push_back(ActivationTime(last - 9 + i * 3 % 10));
        Note(key, Median(times));
    }

    void MeasureFew() {
        OpenTime(0);
        MeasureActivation("again10", 10);
        MeasureHistory(10);
    }

    void MeasureEntryAndUndo(int number) {
        const std::string open = std::to_string(number);
        Note(("enter" + open).c_str(), EnterTime(number));
        Note(("undo" + open).c_str(), UndoTime(number));
    }

    void MeasureFirstActivation() {
        std::vector<double> times;
        for (int number = 40; number <= 900; number += 41)
            times.push_back(ActivationTime(number));
        Note("first1000", Median(times));
    }

    QLineEdit* ThicknessField(int number) {
        window.Area().Activate(number);
        return window.ConstructionWindow(number)->findChild<QLineEdit*>(
            QStringLiteral("EditThick"));
    }

    static void SelectAll(QLineEdit* field) {
        field->setFocus();
        field->selectAll();
        Settle();
    }

    void MeasureDigits(int number) {
        QLineEdit* field = ThicknessField(number);
        std::vector<double> times;
        for (int i = 0; i < 30; ++i) {
            SelectAll(field);
            times.push_back(TimeOf([&] { QTest::keyClick(field, Qt::Key_1); }));
            times.push_back(TimeOf([&] { QTest::keyClick(field, Qt::Key(Qt::Key_0 + i % 10)); }));
        }
        Note("digit", Median(times));
    }

    /// From Enter in the thickness field until the list is painted, a new value each time.
    double EnterTime(int number) {
        QLineEdit* field = ThicknessField(number);
        std::vector<double> times;
        for (int i = 0; i < 30; ++i) {
            SelectAll(field);
            QTest::keyClicks(field, QString::number(10 + i % 10));
            Settle();
            times.push_back(TimeOf([&] { QTest::keyClick(field, Qt::Key_Return); }));
        }
        return Median(times);
    }

    /// From Ctrl+Z until the list is painted, for the thicknesses just entered.
    double UndoTime(int number) {
        auto* list = window.ConstructionWindow(number)->findChild<QListWidget*>(
            QStringLiteral("Construction"));
        list->setFocus();
        std::vector<double> times;
        for (int i = 0; i < 30; ++i) {
            const LayerSlots before = window.TheProject().constructions[number].layers;
            times.push_back(TimeOf([&] { QTest::keyClick(list, Qt::Key_Z, Qt::ControlModifier); }));
            if (window.TheProject().constructions[number].layers == before)
                throw std::runtime_error("nothing was taken back");
        }
        return Median(times);
    }

    /// A thickness entered and painted with a history and without, and the memory of a thousand.
    void MeasureHistory(int number) {
        constexpr int edits = 1000;
        window.Area().Activate(number);
        Project& project = window.TheProject();
        NoPrompts prompts;
        int next = 0;
        const auto edit = [&] {
            SelectLine(project, number, 0, {true});
            EnterThickness(project, number, std::to_string(10 + ++next % 10), prompts);
        };
        History history;
        const auto editKept = [&] {
            history.ActionBegins(project);
            edit();
            history.ActionEnds(project);
        };
        std::vector<double> with;
        std::vector<double> without;
        for (int i = 0; i < 100; ++i) {
            without.push_back(TimeOf([&] { edit(), window.ShowProject(); }));
            with.push_back(TimeOf([&] { editKept(), window.ShowProject(); }));
        }
        Note("edit", Median(without));
        Note("editkept", Median(with));
        history = History();
        const std::size_t before = mallinfo2().uordblks;
        for (int i = 0; i < edits; ++i)
            editKept();
        if (history.Length() != edits)
            throw std::runtime_error("an edit was no step");
        Note("historybytes", static_cast<double>(mallinfo2().uordblks - before));
        constexpr double allowed = 2 << 20;
        Note("allowedbytes", allowed);
    }

    void MeasureRemoval() {
        Note("remove1000", TimeOf([&] { RemoveAll(); }));
    }

    /// Changes a thickness, and notes the longest time for which the event loop stands still until
    /// the change was noticed and its recovery copy was made.
    void MeasureStall() {
        constexpr int untilWritten = 1000; // ms
        Settle();
        QTest::qWait(untilWritten); // what came with opening is over
        window.TheProject().constructions[1].layers.Edit(1).thickness += 1;
        window.TheProject().changed = true;
        window.findChild<QAction*>(QStringLiteral("ArrangeIcons"))->trigger();
        long long last = ThreadTime();
        long long longest = 0;
        QTimer beat; // with each turn of the loop
        QObject::connect(&beat, &QTimer::timeout, &beat, [&] {
            const long long now = ThreadTime();
            longest = std::max(longest, now - std::exchange(last, now));
        });
        beat.start(0);
        QTest::qWait(untilWritten);
        if (!CopyExists())
            throw std::runtime_error("no recovery copy was made");
        Note("stall5000", static_cast<double>(longest) / 1000);
    }

    /// A copy of this process, whose number stands in its name.
    bool CopyExists() {
        const std::string own = "-" + std::to_string(getpid()) + ".";
        const std::filesystem::directory_iterator entries(
            window.Watch().Keeper().Folders().front());
        return std::any_of(begin(entries), end(entries), [&own](const auto& entry) {
            const std::string name = entry.path().filename().string();
            return name.ends_with(".copy") && name.find(own) != std::string::npos;
        });
    }

    char** files;
    UValueMDI window;
    std::string line;
};

} // namespace
} // namespace strativo

int main(int argc, char** argv) {
    setenv("STRATIVO_KEEP_INTERVALS", "300,900", 1);
    QApplication application(argc, argv);
    if (argc != 6) {
        std::cerr << strativo::usage;
        return 2;
    }
    Q_INIT_RESOURCE(strativo);
    const strativo::Appearance appearance(application);
    alarm(600); // a box that nobody answers would wait for ever
    strativo::WindowSteps steps(argv + 2);
    const int rounds = std::atoi(argv[1]);
    for (int round = 0; round <= rounds; ++round)
        steps.Round(round > 0);
    return 0;
}
