#include <QApplication>
#include <QFont>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    Q_INIT_RESOURCE(strativo);
    QFont font = QApplication::font();
    font.setPointSizeF(8.25); // that of the program
    QApplication::setFont(font);
    return RUN_ALL_TESTS();
}
