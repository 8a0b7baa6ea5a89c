#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QToolButton;
class QUrl;

namespace strativo {

class HelpPages;

/// The window that shows the help file: a page of HTML, Markdown or plain text. It follows links to
/// local files only.
class HelpViewer : public QWidget {
    Q_OBJECT

public:
    explicit HelpViewer(QWidget* parent = nullptr);

    /// Opens the file and brings the window to the front. If the file cannot be shown, a page says
    /// so.
    void ShowContents(const QString& path);

    /// The same with another page of the file's folder; Home leads to the file.
    void ShowPage(const QString& path, const QString& page);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Ui {
        QToolButton* Back;
        QToolButton* Forward;
        QToolButton* Home;
        HelpPages* Page;
        QWidget* findBar;
        QLineEdit* FindText;
        QToolButton* FindNext;
        QToolButton* FindPrevious;
        QLabel* Notice;
    };

    void BuildControls();
    void BuildFindBar();
    void LayOut();
    void ConnectSignals();
    QToolButton* AddButton(const QString& objectName, const QString& text, const QString& shortcut,
                           const QString& explanation);

    void BringToFront();
    void FollowLink(const QUrl& link);
    void OpenFindBar();
    void CloseFindBar();
    void Find(bool backwards);

    Ui ui{};
};

} // namespace strativo
