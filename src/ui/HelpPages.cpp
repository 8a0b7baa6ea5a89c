#include "ui/HelpPages.h"

#include "ui/Text.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QStringDecoder>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

#include <algorithm>
#include <vector>

namespace strativo {

namespace {

constexpr qint64 looksAt = 4096;
constexpr qsizetype mostPages = 500;
constexpr int ownWidth = QTextFormat::UserProperty; ///< a picture's width as the page gives it

QString Translated(const char* text) {
    return QCoreApplication::translate("HelpPages", text);
}

/// Why the file cannot be shown as text; empty if it can.
QString WhyNotShown(const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile())
        return Translated("There is no such file.");
    if (!file.open(QIODevice::ReadOnly))
        return Translated("The file cannot be opened for reading.");
    if (file.read(looksAt).contains('\0'))
        return Translated("The file is neither a page of HTML or Markdown nor plain text.");
    return {};
}

QString HtmlPage(const QString& path, const QString& reason) {
    return QStringLiteral("<h2>%1</h2><p>%2</p><p>%3</p>")
        .arg(Translated("This help page cannot be shown"), path.toHtmlEscaped(), reason);
}

QString MarkdownPage(const QString& path, const QString& reason) {
    return QStringLiteral("## %1\n\n    %2\n\n%3\n")
        .arg(Translated("This help page cannot be shown"), path.simplified(), reason);
}

/// The file's bytes as a page of HTML; plain text is wrapped so that its lines stay as they are.
QVariant HtmlText(const QString& path, const QByteArray& bytes) {
    if (QFileInfo(path).suffix().startsWith(QLatin1String("htm"), Qt::CaseInsensitive))
        return bytes;
    const QString text = PathText(bytes.toStdString());
    if (Qt::mightBeRichText(text))
        return text;
    return QStringLiteral("<pre style='white-space: pre-wrap'>%1</pre>").arg(text.toHtmlEscaped());
}

void TidyTables(QTextFrame* frame) {
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

/// Calls act(fragment) for each piece of text of one format, pictures among them.
template <class Action>
void ForEachFragment(const QTextDocument& document, Action act) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto piece = block.begin(); !piece.atEnd(); ++piece)
            act(piece.fragment());
}

/// The width that the page gives the picture, or else that of its file; pixels.
qreal WantedWidth(const QTextImageFormat& picture, const QTextDocument& document) {
    if (picture.hasProperty(ownWidth))
        return picture.doubleProperty(ownWidth);
    if (picture.width() > 0)
        return picture.width();
    const QVariant file = document.resource(QTextDocument::ImageResource, QUrl(picture.name()));
    return file.typeId() == QMetaType::QByteArray ? QImage::fromData(file.toByteArray()).width()
                                                  : file.value<QImage>().width();
}

bool IsMarkdown(const QString& path) {
    return QFileInfo(path).suffix().compare(QLatin1String("md"), Qt::CaseInsensitive) == 0;
}

/// The pages in the folder that the document links to.
QList<QUrl> LinksOf(const QTextDocument& document, const QUrl& page, const QString& folder) {
    QList<QUrl> links;
    ForEachFragment(document, [&](const QTextFragment& fragment) {
        const QString link = fragment.charFormat().anchorHref();
        const QUrl target = page.resolved(QUrl(link)).adjusted(QUrl::RemoveFragment);
        const QFileInfo file(target.toLocalFile());
        if (!link.isEmpty() && target.isLocalFile() && file.isFile()
            && QDir::cleanPath(file.absolutePath()).startsWith(folder))
            links.append(target);
    });
    return links;
}

} // namespace

QVariant HelpPages::loadResource(int type, const QUrl& name) {
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
    if (!reason.isEmpty())
        return type == QTextDocument::HtmlResource ? HtmlPage(path, reason)
                                                   : MarkdownPage(path, reason);
    const QVariant content = QTextBrowser::loadResource(type, file);
    return type == QTextDocument::HtmlResource ? HtmlText(path, content.toByteArray()) : content;
}

void HelpPages::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
    if (first.isEmpty())
        first = name.adjusted(QUrl::RemoveFragment);
    QTextBrowser::doSetSource(name, type);
    TidyTables(document()->rootFrame());
    FitPictures();
    // Tables and pictures have shifted what follows them.
    if (name.hasFragment())
        scrollToAnchor(name.fragment());
}

void HelpPages::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    FitPictures();
}

void HelpPages::FitPictures() {
    const qreal room = viewport()->width() - 2 * document()->documentMargin();
    std::vector<QTextFragment> pictures;
    ForEachFragment(*document(), [&](const QTextFragment& fragment) {
        if (fragment.charFormat().isImageFormat())
            pictures.push_back(fragment);
    });
    for (const QTextFragment& fragment : pictures) {
        QTextImageFormat picture = fragment.charFormat().toImageFormat();
        const qreal wanted = WantedWidth(picture, *document());
        picture.setProperty(ownWidth, wanted);
        picture.setWidth(std::max(1.0, std::min(wanted, room)));
        QTextCursor cursor(document());
        cursor.setPosition(fragment.position());
        cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
        cursor.setCharFormat(picture);
    }
}

std::unique_ptr<QTextDocument> HelpPages::Load(const QUrl& page) {
    auto document = std::make_unique<QTextDocument>();
    const bool isMarkdown = IsMarkdown(page.path());
    const QVariant content = loadResource(
        isMarkdown ? QTextDocument::MarkdownResource : QTextDocument::HtmlResource, page);
    QString text = content.toString();
    if (content.typeId() == QMetaType::QByteArray)
        text = QStringDecoder::decoderForHtml(content.toByteArray())(content.toByteArray());
    if (isMarkdown)
        document->setMarkdown(text);
    else
        document->setHtml(text);
    return document;
}

QList<QUrl> HelpPages::AllPages() {
    QList<QUrl> pages{first};
    const QString folder = QDir::cleanPath(QFileInfo(first.toLocalFile()).absolutePath());
    for (qsizetype i = 0; i < pages.size(); ++i)
        for (const QUrl& link : LinksOf(*Load(pages[i]), pages[i], folder))
            if (pages.size() < mostPages && !pages.contains(link))
                pages.append(link);
    return pages;
}

bool HelpPages::FindInAll(const QString& wanted, bool backwards) {
    const QTextDocument::FindFlags flags =
        backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (find(wanted, flags))
        return true;
    const QTextCursor before = textCursor();
    QList<QUrl> pages = AllPages();
    const QUrl here = source().adjusted(QUrl::RemoveFragment);
    if (!pages.contains(here))
        pages.append(here);
    // The pages that follow this one, and after the last of them those before it.
    std::rotate(pages.begin(), pages.begin() + pages.indexOf(here) + 1, pages.end());
    if (backwards)
        std::reverse(pages.begin(), pages.end() - 1);
    for (const QUrl& page : std::as_const(pages))
        if (page == here ? FindFromEnd(wanted, flags) : FindOn(page, wanted, flags))
            return true;
    setTextCursor(before);
    return false;
}

bool HelpPages::FindOn(const QUrl& page, const QString& wanted, QTextDocument::FindFlags flags) {
    if (Load(page)->find(wanted).isNull())
        return false;
    setSource(page);
    return FindFromEnd(wanted, flags);
}

bool HelpPages::FindFromEnd(const QString& wanted, QTextDocument::FindFlags flags) {
    moveCursor(flags.testFlag(QTextDocument::FindBackward) ? QTextCursor::End : QTextCursor::Start);
    return find(wanted, flags);
}

} // namespace strativo
