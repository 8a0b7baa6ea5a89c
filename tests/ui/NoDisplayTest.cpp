#include <QProcess>

#include <gtest/gtest.h>

namespace strativo {
namespace {

TEST(WithoutADisplay, TheProgramSaysSoInOneLineAndEndsWithStatusOne) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET", "QT_QPA_PLATFORM"})
        environment.remove(QLatin1String(name));
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(STRATIVO), {});
    ASSERT_TRUE(program.waitForFinished(60000)) << program.errorString().toStdString();
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_EQ(program.readAllStandardOutput().toStdString(), "");
    EXPECT_EQ(program.readAllStandardError().toStdString(),
              "strativo: there is no display to open a window on\n");
}

} // namespace
} // namespace strativo
