#include "ui/DragImage.h"

#include "ui/ColumnList.h"
#include "ui/Text.h"

namespace strativo {

DragImage::DragImage(const QString& objectName, const QString& caption, QWidget* parent)
    : QLabel(parent) {
    SetPlainText(*this, caption);
    setObjectName(objectName);
    hide();
}

const QPixmap& DragImage::Draw(const QStringList& lines) {
    QLabel lifted;
    SetPlainText(lifted, lines.join(QLatin1Char('\n')));
    lifted.setFont(ColumnFont());
    lifted.setPalette(palette());
    lifted.setAutoFillBackground(true);
    lifted.setFrameStyle(QFrame::Panel | QFrame::Plain);
    lifted.setMargin(2);
    lifted.adjustSize();
    picture = lifted.grab();
    return picture;
}

} // namespace strativo
