#include <QProcess>

#include <gmock/gmock.h>

namespace strativo {
namespace {

/// What the program prints where it cannot open a window.
std::string ErrorsOf(const QProcessEnvironment& environment) {
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(STRATIVO), {});
    EXPECT_TRUE(program.waitForFinished(60000)) << program.errorString().toStdString();
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_EQ(program.readAllStandardOutput().toStdString(), "");
    return program.readAllStandardError().toStdString();
}

QProcessEnvironment WithoutDisplay() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET", "QT_QPA_PLATFORM"})
        environment.remove(QLatin1String(name));
    return environment;
}

TEST(WithoutADisplay, TheProgramSaysSoInOneLineAndEndsWithStatusOne) {
    EXPECT_EQ(ErrorsOf(WithoutDisplay()), "strativo: there is no display to open a window on\n");
}

TEST(WithoutADisplay, AWayToTheScreenThatThereIsNotIsNamed) {
    QProcessEnvironment environment = WithoutDisplay();
    environment.insert(QStringLiteral("DISPLAY"), QStringLiteral(":99"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("nonsense"));
    EXPECT_THAT(ErrorsOf(environment),
                testing::AllOf(testing::HasSubstr("Could not find the Qt platform plugin"),
                               testing::EndsWith("strativo: no window can be opened with "
                                                 "QT_QPA_PLATFORM=nonsense\n")));
}

} // namespace
} // namespace strativo
