#include "ui/HelpViewer.h"

#include "ui/MainWindowPlace.h"
#include "ui/Text.h"

#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextTable>
#include <QToolButton>

namespace strativo {

namespace {

constexpr qint64 looksAt = 4096;

/// Why the file cannot be shown as text; empty if it can.
QString WhyNotShown(const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile())
        return HelpViewer::tr("There is no such file.");
    if (!file.open(QIODevice::ReadOnly))
        return HelpViewer::tr("The file cannot be opened for reading.");
    if (file.read(looksAt).contains('\0'))
        return HelpViewer::tr("The file is neither a page of HTML or Markdown nor plain text.");
    return {};
}

/// Shows local files only; for one that cannot be shown, it makes up a page that says so.
class LocalPages : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl& name) override {
        const QUrl file = source().resolved(name);
        if (!file.isLocalFile())
            return {};
        const QString path = file.toLocalFile();
        const bool isPage =
            type == QTextDocument::HtmlResource || type == QTextDocument::MarkdownResource;
        // Reading a device as if it were a picture would never end.
        if (!isPage && !QFileInfo(path).isFile())
            return {};
        const QString reason = isPage ? WhyNotShown(path) : QString();
        if (reason.isEmpty())
            return type == QTextDocument::HtmlResource ? HtmlText(path)
                                                       : QTextBrowser::loadResource(type, file);
        return type == QTextDocument::HtmlResource ? HtmlPage(path, reason)
                                                   : MarkdownPage(path, reason);
    }

protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override {
        QTextBrowser::doSetSource(name, type);
        TidyTables(document()->rootFrame());
        // The tables have shifted what follows them.
        if (name.hasFragment())
            scrollToAnchor(name.fragment());
    }

private:
    static void TidyTables(QTextFrame* frame) {
        for (QTextFrame* child : frame->childFrames()) {
            TidyTables(child);
            if (auto* table = qobject_cast<QTextTable*>(child)) {
                QTextTableFormat format = table->format();
                format.setBorder(0);
                format.setCellSpacing(0);
                format.setCellPadding(4);
                format.setBottomMargin(12);
                table->setFormat(format);
            }
        }
    }

    /// The file as a page of HTML; plain text is wrapped so that its lines stay as they are.
    QVariant HtmlText(const QString& path) {
        const QVariant bytes =
            QTextBrowser::loadResource(QTextDocument::HtmlResource, QUrl::fromLocalFile(path));
        if (QFileInfo(path).suffix().startsWith(QLatin1String("htm"), Qt::CaseInsensitive))
            return bytes;
        const QString text = PathText(bytes.toByteArray().toStdString());
        if (Qt::mightBeRichText(text))
            return text;
        return QStringLiteral("<pre style='white-space: pre-wrap'>%1</pre>")
            .arg(text.toHtmlEscaped());
    }

    static QString HtmlPage(const QString& path, const QString& reason) {
        return QStringLiteral("<h2>%1</h2><p>%2</p><p>%3</p>")
            .arg(HelpViewer::tr("This help page cannot be shown"), path.toHtmlEscaped(), reason);
    }

    static QString MarkdownPage(const QString& path, const QString& reason) {
        return QStringLiteral("## %1\n\n    %2\n\n%3\n")
            .arg(HelpViewer::tr("This help page cannot be shown"), path.simplified(), reason);
    }
};

} // namespace

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
    ui.Page = new LocalPages(this);
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
    ui.FindText->setPlaceholderText(tr("Find in this page"));
    ui.FindText->setAccessibleName(tr("Find in this page"));
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
    const QTextDocument::FindFlags flags =
        backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    const QTextCursor before = ui.Page->textCursor();
    bool found = ui.Page->find(wanted, flags);
    if (!found) {
        // From the other end on: the search goes round.
        ui.Page->moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
        found = ui.Page->find(wanted, flags);
    }
    if (!found)
        ui.Page->setTextCursor(before);
    SetPlainText(*ui.Notice, found ? QString() : tr("Not found: %1").arg(wanted));
}

void HelpViewer::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && ui.findBar->isVisible())
        CloseFindBar();
    else
        QWidget::keyPressEvent(event);
}

} // namespace strativo
