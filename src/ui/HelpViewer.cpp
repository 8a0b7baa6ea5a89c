#include "ui/HelpViewer.h"

#include "ui/HelpPages.h"
#include "ui/MainWindowPlace.h"
#include "ui/Text.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QToolButton>

namespace strativo {

HelpViewer::HelpViewer(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName(QStringLiteral("HelpViewer"));
    setWindowTitle(tr("Strativo Help"));
    BuildControls();
    BuildFindBar();
    LayOut();
    ConnectSignals();
    const QSize usual(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 42);
    resize(FittingSize(usual, *this));
}

QToolButton* HelpViewer::AddButton(const QString& objectName, const QString& text,
                                   const QString& shortcut, const QString& explanation) {
    auto* button = new QToolButton(this);
    button->setObjectName(objectName);
    button->setText(text);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    connect(new QShortcut(QKeySequence(shortcut), this), &QShortcut::activated, button,
            &QToolButton::click);
    button->setAccessibleName(text);
    button->setToolTip(QStringLiteral("%1 (%2)").arg(explanation, shortcut));
    return button;
}

void HelpViewer::BuildControls() {
    ui.Back = AddButton(QStringLiteral("Back"), tr("Back"), QStringLiteral("Alt+Left"),
                        tr("The page before"));
    ui.Back->setArrowType(Qt::LeftArrow);
    ui.Forward = AddButton(QStringLiteral("Forward"), tr("Forward"), QStringLiteral("Alt+Right"),
                           tr("The page after"));
    ui.Forward->setArrowType(Qt::RightArrow);
    ui.Home = AddButton(QStringLiteral("Home"), tr("Contents"), QStringLiteral("Alt+Home"),
                        tr("The first page"));
    for (QToolButton* button : {ui.Back, ui.Forward}) {
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setEnabled(false);
    }
    ui.Page = new HelpPages(this);
    ui.Page->setObjectName(QStringLiteral("Page"));
    ui.Page->setOpenLinks(false);
    ui.Page->setAccessibleName(tr("Help page"));
    ui.Page->document()->setDocumentMargin(16);
    QFont reading = font();
    reading.setPointSizeF(reading.pointSizeF() * 1.25);
    ui.Page->setFont(reading);
}

void HelpViewer::BuildFindBar() {
    ui.findBar = new QWidget(this);
    ui.findBar->setObjectName(QStringLiteral("FindBar"));
    ui.FindText = new QLineEdit(ui.findBar);
    ui.FindText->setObjectName(QStringLiteral("FindText"));
    ui.FindText->setPlaceholderText(tr("Find in all pages"));
    ui.FindText->setAccessibleName(tr("Find in all pages"));
    ui.FindText->setClearButtonEnabled(true);
    ui.FindNext = AddButton(QStringLiteral("FindNext"), tr("Next"), QStringLiteral("F3"),
                            tr("The next place"));
    ui.FindPrevious = AddButton(QStringLiteral("FindPrevious"), tr("Previous"),
                                QStringLiteral("Shift+F3"), tr("The place before"));
    ui.Notice = PlainLabel(QString(), this);
    ui.Notice->setObjectName(QStringLiteral("Notice"));
    auto* row = new QHBoxLayout(ui.findBar);
    row->setContentsMargins(6, 0, 6, 0);
    row->addWidget(ui.FindText, 1);
    row->addWidget(ui.FindPrevious);
    row->addWidget(ui.FindNext);
    ui.findBar->hide();
}

void HelpViewer::LayOut() {
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 4, 0, 4);
    rows->setSpacing(4);
    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(6, 0, 6, 0);
    for (QToolButton* button : {ui.Back, ui.Forward, ui.Home})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(ui.Notice);
    rows->addLayout(buttons);
    rows->addWidget(ui.Page, 1);
    rows->addWidget(ui.findBar);
}

void HelpViewer::ConnectSignals() {
    connect(ui.Back, &QToolButton::clicked, ui.Page, &QTextBrowser::backward);
    connect(ui.Forward, &QToolButton::clicked, ui.Page, &QTextBrowser::forward);
    connect(ui.Home, &QToolButton::clicked, ui.Page, &QTextBrowser::home);
    connect(ui.Page, &QTextBrowser::backwardAvailable, ui.Back, &QToolButton::setEnabled);
    connect(ui.Page, &QTextBrowser::forwardAvailable, ui.Forward, &QToolButton::setEnabled);
    connect(ui.Page, &QTextBrowser::sourceChanged, ui.Notice, &QLabel::clear);
    connect(ui.Page, &QTextBrowser::anchorClicked, this, &HelpViewer::FollowLink);
    connect(ui.FindText, &QLineEdit::returnPressed, this, [this] { Find(false); });
    connect(ui.FindNext, &QToolButton::clicked, this, [this] { Find(false); });
    connect(ui.FindPrevious, &QToolButton::clicked, this, [this] { Find(true); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this,
            &HelpViewer::OpenFindBar);
}

void HelpViewer::ShowContents(const QString& path) {
    const QUrl contents = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    // Read again, because the page may have been missing or may have changed.
    if (ui.Page->source() == contents)
        ui.Page->reload();
    else
        ui.Page->setSource(contents);
    BringToFront();
}

void HelpViewer::ShowPage(const QString& path, const QString& page) {
    const QFileInfo contents(path);
    if (ui.Page->source().isEmpty())
        ui.Page->setSource(QUrl::fromLocalFile(contents.absoluteFilePath()));
    ui.Page->setSource(QUrl::fromLocalFile(contents.absolutePath() + QLatin1Char('/') + page));
    BringToFront();
}

void HelpViewer::BringToFront() {
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
    ui.Page->setFocus();
}

void HelpViewer::FollowLink(const QUrl& link) {
    const QUrl target = ui.Page->source().resolved(link);
    if (target.isLocalFile())
        ui.Page->setSource(target);
    else
        SetPlainText(*ui.Notice, tr("Not opened: %1").arg(target.toDisplayString()));
}

void HelpViewer::OpenFindBar() {
    ui.findBar->show();
    ui.FindText->setFocus(Qt::ShortcutFocusReason);
    ui.FindText->selectAll();
}

void HelpViewer::CloseFindBar() {
    ui.findBar->hide();
    ui.Notice->clear();
    ui.Page->setFocus();
}

void HelpViewer::Find(bool backwards) {
    const QString wanted = ui.FindText->text();
    if (wanted.isEmpty()) {
        OpenFindBar();
        return;
    }
    const bool found = ui.Page->FindInAll(wanted, backwards);
    SetPlainText(*ui.Notice, found ? QString() : tr("Not found: %1").arg(wanted));
}

void HelpViewer::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && ui.findBar->isVisible())
        CloseFindBar();
    else
        QWidget::keyPressEvent(event);
}

} // namespace strativo
