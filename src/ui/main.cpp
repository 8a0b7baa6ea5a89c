#include "files/Process.h"
#include "project/CommandLineHelp.h"
#include "ui/Appearance.h"
#include "ui/EndRequests.h"
#include "ui/STRATVMD.h"
#include "ui/StartMessages.h"

#include <QApplication>
#include <QIcon>
#include <QSocketNotifier>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

namespace {

/// All arguments, joined by blanks, form one path, and its bytes are kept as they are. Qt has
/// removed its own options by then.
std::string CommandLine(int argc, char** argv) {
    std::string line;
    for (int i = 1; i < argc; ++i)
        line += (i > 1 ? " " : "") + std::string(argv[i]);
    return line;
}

int PrintToTerminal(const std::string& text) {
    const bool printed = std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
    return printed ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    strativo::PrepareProcess();
    std::signal(SIGPIPE, SIG_IGN); // work does not end with the reader of what is printed
    const std::string answer = strativo::HelpOrVersion({argv + 1, argv + argc});
    if (!answer.empty())
        return PrintToTerminal(answer);
    auto startMessages = std::make_unique<strativo::StartMessages>();
    QApplication application(argc, argv);
    startMessages.reset();
    Q_INIT_RESOURCE(strativo); // the resources are in a library and would otherwise not be linked
    QApplication::setApplicationName(QStringLiteral("strativo"));
    QApplication::setDesktopFileName(QStringLiteral("strativo"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/window-icon.png")));
    const strativo::Appearance appearance(application);
    strativo::UValueMDI window;
    const strativo::EndRequests requests;
    const QSocketNotifier endRequests(requests.Descriptor(), QSocketNotifier::Read);
    QObject::connect(&endRequests, &QSocketNotifier::activated, &window,
                     &strativo::UValueMDI::EndByRequest);
    // Logging out asks nothing: the session may end before anybody could answer.
    QObject::connect(&application, &QApplication::commitDataRequest, &window,
                     &strativo::UValueMDI::KeepWork);
    window.MDIForm_Load(CommandLine(argc, argv));
    return window.HasEnded() ? 0 : QApplication::exec();
}
