#include <QProcess>

#include <gtest/gtest.h>

namespace strativo {
namespace {

struct Outcome {
    int status;
    QByteArray out;
    QByteArray err;
};

/// Runs the program where it cannot open a window.
Outcome RunWithoutDisplay(const QStringList& arguments, const QString& output = {}) {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    program.setProcessEnvironment(environment);
    if (!output.isEmpty())
        program.setStandardOutputFile(output);
    program.start(QStringLiteral(STRATIVO), arguments);
    EXPECT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

TEST(ProgramOptions, HelpIsPrintedWithoutADisplay) {
    const Outcome run = RunWithoutDisplay({QStringLiteral("--help")});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.out.startsWith("Usage: strativo [FILE.con]\n")) << run.out.constData();
    EXPECT_EQ(run.err, "");
}

TEST(ProgramOptions, TheVersionIsPrintedWithoutADisplay) {
    const Outcome run = RunWithoutDisplay({QStringLiteral("--version")});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.out.startsWith("strativo 2.")) << run.out.constData();
    EXPECT_EQ(run.out.count('\n'), 1);
    EXPECT_EQ(run.err, "");
}

TEST(ProgramOptions, OtherArgumentsStartTheProgram) {
    const Outcome run = RunWithoutDisplay({QStringLiteral("--help"), QStringLiteral("house.con")});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "strativo: there is no display to open a window on\n");
}

TEST(ProgramOptions, TextThatCannotBePrintedIsAnError) {
    EXPECT_EQ(RunWithoutDisplay({QStringLiteral("--help")}, QStringLiteral("/dev/full")).status, 1);
}

} // namespace
} // namespace strativo
