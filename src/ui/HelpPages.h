#pragma once

#include <QList>
#include <QTextBrowser>

#include <memory>

namespace strativo {

/// The pages of the help: HTML, Markdown or plain text from local files. For a file that cannot be
/// shown it makes up a page that says so. Pictures are never wider than the window.
class HelpPages : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

    /// Finds the next place of the text, or the previous one: on from the cursor, then in the other
    /// pages that links lead to from the first page within its folder, and at last in the rest of
    /// this page. False, with nothing changed, if there is none.
    bool FindInAll(const QString& wanted, bool backwards);

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// The page's text for reading links and searching, without pictures.
    std::unique_ptr<QTextDocument> Load(const QUrl& page);
    QList<QUrl> AllPages();
    bool FindOn(const QUrl& page, const QString& wanted, QTextDocument::FindFlags flags);
    bool FindFromEnd(const QString& wanted, QTextDocument::FindFlags flags);
    void FitPictures();

    QUrl first; ///< the page that was opened first
};

} // namespace strativo
