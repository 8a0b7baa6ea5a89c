#include "ui/MoreWindows.h"

#include "ui/Text.h"

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTreeView>

#include <utility>

namespace strativo {

namespace {

constexpr int columns = 4;
constexpr int nameColumn = 1;

/// The lines as Qt's views ask for them.
class WindowModel : public QAbstractTableModel {
public:
    WindowModel(const std::vector<WindowLine>& shownLines, QObject* parent)
        : QAbstractTableModel(parent), lines(shownLines) {}

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(lines.size());
    }

    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : columns;
    }

    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole)
            return {};
        const WindowLine& line = lines[static_cast<std::size_t>(index.row())];
        const std::string* const texts[columns] = {&line.number, &line.name, &line.type,
                                                   &line.uValue};
        return Elided(QString::fromStdString(*texts[index.column()]));
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
            return {};
        const QString headings[columns] = {MoreWindows::tr("Number"), MoreWindows::tr("Name"),
                                           MoreWindows::tr("Type"),
                                           MoreWindows::tr("U-value W/m2C")};
        return headings[section];
    }

private:
    const std::vector<WindowLine>& lines;
};

class WindowFilter : public QSortFilterProxyModel {
public:
    WindowFilter(const std::vector<WindowLine>& shownLines, QObject* parent)
        : QSortFilterProxyModel(parent), lines(shownLines) {}

    void SetWords(const QString& text) {
        words = text.toStdString();
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex&) const override {
        return Matches(lines[static_cast<std::size_t>(row)], words);
    }

private:
    const std::vector<WindowLine>& lines;
    std::string words;
};

} // namespace

MoreWindows::MoreWindows(std::vector<WindowLine> windowLines, QWidget* parent)
    : QDialog(parent), lines(std::move(windowLines)), shown(new WindowFilter(lines, this)) {
    setObjectName(QStringLiteral("MoreWindows"));
    setWindowTitle(tr("Windows"));
    setWindowModality(Qt::WindowModal); // the help stays free
    setSizeGripEnabled(true);
    shown->setSourceModel(new WindowModel(lines, this));
    BuildControls();
    BuildList();
    LayOut();
    ConnectSignals();
    SelectFirst();
}

QSize MoreWindows::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 90, fontMetrics().height() * 26};
}

void MoreWindows::BuildControls() {
    ui.Filter = new QLineEdit(this);
    ui.Filter->setObjectName(QStringLiteral("Filter"));
    ui.Filter->setClearButtonEnabled(true);
    ui.Filter->setAccessibleName(tr("Filter"));
    ui.Filter->setToolTip(
        tr("Lists only windows in whose number, name, type or U-value each of these words stands"));
    ui.Filter->installEventFilter(this);
    ui.OKButton = new QPushButton(tr("OK"), this);
    ui.OKButton->setObjectName(QStringLiteral("OKButton"));
    ui.OKButton->setDefault(true);
    ui.OKButton->setToolTip(tr("Brings the selected window to the front"));
    ui.CancelButton = new QPushButton(tr("Cancel"), this);
    ui.CancelButton->setObjectName(QStringLiteral("CancelButton"));
    ui.CancelButton->setToolTip(tr("Leaves the windows as they are"));
}

void MoreWindows::BuildList() {
    ui.Windows = new QTreeView(this);
    ui.Windows->setObjectName(QStringLiteral("Windows"));
    ui.Windows->setUniformRowHeights(true);
    ui.Windows->setRootIsDecorated(false);
    ui.Windows->setAllColumnsShowFocus(true);
    ui.Windows->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ui.Windows->setModel(shown);
    ui.Windows->setAccessibleName(tr("Windows"));
    ui.Windows->setToolTip(tr("The open windows; double click or Enter brings one to the front"));
    QHeaderView& header = *ui.Windows->header();
    header.setStretchLastSection(false);
    const int character = fontMetrics().averageCharWidth();
    const int widths[columns] = {10, 0, 15, 18};
    for (int column = 0; column < columns; ++column)
        header.resizeSection(column, widths[column] * character);
    header.setSectionResizeMode(nameColumn, QHeaderView::Stretch);
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
    connect(ui.Windows, &QTreeView::doubleClicked, this, &MoreWindows::accept);
    connect(ui.OKButton, &QPushButton::clicked, this, &MoreWindows::accept);
    connect(ui.CancelButton, &QPushButton::clicked, this, &MoreWindows::reject);
}

void MoreWindows::Filter_Change(const QString& text) {
    static_cast<WindowFilter*>(shown)->SetWords(text);
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

int ChooseWindow(const std::vector<WindowLine>& lines, QWidget* parent) {
    MoreWindows dialog(lines, parent);
    return dialog.exec() == QDialog::Accepted ? dialog.Selected() : -1;
}

} // namespace strativo
