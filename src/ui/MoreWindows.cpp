#include "ui/MoreWindows.h"

#include "ui/Text.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStringListModel>

namespace strativo {

MoreWindows::MoreWindows(const QStringList& captions, QWidget* parent)
    : QDialog(parent), shown(new QSortFilterProxyModel(this)) {
    setObjectName(QStringLiteral("MoreWindows"));
    setWindowTitle(tr("Windows"));
    setSizeGripEnabled(true);
    BuildControls(captions);
    LayOut();
    ConnectSignals();
    SelectFirst();
}

QSize MoreWindows::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 58, fontMetrics().height() * 26};
}

void MoreWindows::BuildControls(const QStringList& captions) {
    shown->setSourceModel(new QStringListModel(captions, this));
    shown->setFilterCaseSensitivity(Qt::CaseInsensitive);
    ui.Filter = new QLineEdit(this);
    ui.Filter->setObjectName(QStringLiteral("Filter"));
    ui.Filter->setClearButtonEnabled(true);
    ui.Filter->setAccessibleName(tr("Filter"));
    ui.Filter->setToolTip(tr("Lists only windows whose caption contains this text"));
    ui.Filter->installEventFilter(this);
    ui.Windows = new QListView(this);
    ui.Windows->setObjectName(QStringLiteral("Windows"));
    ui.Windows->setUniformItemSizes(true);
    ui.Windows->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ui.Windows->setModel(shown);
    ui.Windows->setAccessibleName(tr("Windows"));
    ui.Windows->setToolTip(tr("The open windows; double click or Enter brings one to the front"));
    ui.OKButton = new QPushButton(tr("OK"), this);
    ui.OKButton->setObjectName(QStringLiteral("OKButton"));
    ui.OKButton->setDefault(true);
    ui.OKButton->setToolTip(tr("Brings the selected window to the front"));
    ui.CancelButton = new QPushButton(tr("Cancel"), this);
    ui.CancelButton->setObjectName(QStringLiteral("CancelButton"));
    ui.CancelButton->setToolTip(tr("Leaves the windows as they are"));
}

void MoreWindows::LayOut() {
    QLabel* filterLabel = PlainLabel(tr("&Filter"), this);
    filterLabel->setBuddy(ui.Filter);
    auto* filterRow = new QHBoxLayout;
    filterRow->addWidget(filterLabel);
    filterRow->addWidget(ui.Filter);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ui.OKButton);
    buttons->addWidget(ui.CancelButton);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(filterRow);
    rows->addWidget(ui.Windows);
    rows->addLayout(buttons);
}

void MoreWindows::ConnectSignals() {
    connect(ui.Filter, &QLineEdit::textChanged, this, &MoreWindows::Filter_Change);
    connect(ui.Windows, &QListView::doubleClicked, this, &MoreWindows::accept);
    connect(ui.OKButton, &QPushButton::clicked, this, &MoreWindows::accept);
    connect(ui.CancelButton, &QPushButton::clicked, this, &MoreWindows::reject);
}

void MoreWindows::Filter_Change(const QString& text) {
    shown->setFilterFixedString(text);
    SelectFirst();
}

void MoreWindows::SelectFirst() {
    ui.Windows->setCurrentIndex(shown->index(0, 0));
    ui.OKButton->setEnabled(shown->rowCount() > 0);
}

int MoreWindows::Selected() const {
    const QModelIndexList selected = ui.Windows->selectionModel()->selectedRows();
    return selected.isEmpty() ? -1 : shown->mapToSource(selected.first()).row();
}

bool MoreWindows::eventFilter(QObject* watched, QEvent* event) {
    // The arrow keys move through the list while the focus stays in the filter field.
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp
            || key == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(ui.Windows, event);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

int ChooseWindow(const QStringList& captions, QWidget* parent) {
    MoreWindows dialog(captions, parent);
    return dialog.exec() == QDialog::Accepted ? dialog.Selected() : -1;
}

} // namespace strativo
