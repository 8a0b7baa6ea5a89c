#include "ui/Appearance.h"

#include <QApplication>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" STRATIVO_SOURCE "/tests/ui/screen.json");
    QApplication application(argc, argv);
    Q_INIT_RESOURCE(strativo);
    const strativo::Appearance appearance(application);
    return RUN_ALL_TESTS();
}
