#include <QApplication>
#include <QFont>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    Q_INIT_RESOURCE(strativo);
    QFont font = QApplication::font();
    font.setPointSize(8);
    QApplication::setFont(font);
    return RUN_ALL_TESTS();
}
