#include "MainWindowTest.h"
#include "edit/GlassTypes.h"
#include "ui/HelpViewer.h"
#include "ui/MessageBox.h"
#include "ui/MoreWindows.h"
#include "ui/StatusBar.h"
#include "ui/Text.h"
#include "ui/UvalsDialog.h"
#include "ui/WINPRO.h"
#include "ui/WindowArea.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QFileDialog>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTextDocument>
#include <QToolTip>

#include <fstream>

namespace strativo {
namespace {

constexpr std::size_t veryLong = 5'000'000;

std::string Repeated(const std::string& piece) {
    std::string text;
    while (text.size() < veryLong)
        text += piece;
    return text;
}

/// Windows-1252 bytes that a file can hold in its names, apart from line ends.
const std::vector<std::string>& HostileNames() {
    static const std::vector<std::string> names = {
        "<img src=\"/dev/zero\">",
        "<img src='file:///dev/zero'/>",
        "<b>bold</b>",
        "<a href=\"file:///etc/passwd\">link</a>",
        "<table><tr><td>cell",
        "<!DOCTYPE html><html><body>page</body></html>",
        "<?xml version=\"1.0\"?><p>x</p>",
        "<qt><h1>heading</h1></qt>",
        "<style>*{font-size:900px}</style><p>x",
        "</p><img src=/dev/zero><p style='white-space: pre-wrap'>",
        "<object data=/dev/zero></object>",
        "&lt;img src=/dev/zero&gt;",
        "&amp;&quot;&#60;b&#62;",
        "&File && &x",
        "tab\tCtrl+Q",
        "\x01\x02\x07\x08\x1B[31mred\x1B[0m\x7F",
        "\x81\x8D\x8F\x90\x9D",
        "O'Brien's \"wall\"",
        "[*] and [*][*]",
        "%1 %2 %n %s %L1",
        "\xA0\xAD\x85",
        "![picture](/dev/zero) `code` # heading",
        "javascript:alert(1) http://example.org/",
        std::string(veryLong, 'w'),
        Repeated("<b>x</b>"),
        Repeated("<img src=\"/dev/zero\"> "),
        Repeated("&"),
        Repeated("a b/"),
    };
    return names;
}

/// HTML as Qt would show it; records what it would load.
class Shown : public QTextDocument {
public:
    explicit Shown(const QString& html) { setHtml(html); }
    bool loads = false;

protected:
    QVariant loadResource(int, const QUrl&) override {
        loads = true;
        return {};
    }
};

/// Plain characters, along with those that mean something in HTML and words of the program around
/// them.
constexpr qsizetype longestAllowed = 6 * (2 * longestShownLine + 200);

class HostileNamesWalk : public MainWindowTest {
protected:
    static std::string NameOf(const QObject& object) {
        return std::string(object.metaObject()->className()) + " "
               + object.objectName().toStdString();
    }

    /// What a tooltip shows for this text; nothing if HTML in a name would take effect.
    static std::optional<QString> PlainTip(const QString& tip) {
        if (tip.size() > longestAllowed)
            return std::nullopt;
        if (!Qt::mightBeRichText(tip))
            return tip;
        const QString start = QStringLiteral("<p style='white-space: pre'>");
        const QString end = QStringLiteral("</p>");
        const QString text = tip.mid(start.size(), tip.size() - start.size() - end.size());
        const bool isOurs = tip.startsWith(start) && tip.endsWith(end)
                            && !text.contains(QLatin1Char('<')) && !text.contains(QLatin1Char('>'));
        Shown shown(tip);
        shown.adjustSize();
        return isOurs && !shown.loads ? std::optional(shown.toPlainText()) : std::nullopt;
    }

    static void ExpectPlainLabel(const QLabel& label) {
        // A tooltip's window decides by the text whether it is HTML, so the text is checked where
        // it is set.
        const bool isTip = qstrcmp(label.metaObject()->className(), "QTipLabel") == 0;
        const bool isPlain =
            label.text().isEmpty() || label.textFormat() == Qt::PlainText
            || (isTip ? PlainTip(label.text()).has_value() : !Qt::mightBeRichText(label.text()));
        EXPECT_TRUE(isPlain) << NameOf(label);
        const bool ofToolkit = isTip || qobject_cast<QFileDialog*>(label.window()) != nullptr;
        EXPECT_TRUE(ofToolkit || label.text().isEmpty() || label.textFormat() == Qt::PlainText)
            << NameOf(label);
        EXPECT_LE(label.text().size(), longestShownText) << NameOf(label);
        for (const QString& line : label.text().split(QLatin1Char('\n')))
            EXPECT_LE(line.size(), 2 * longestShownLine + 200) << NameOf(label);
    }

    static void ExpectPlainItems(const QAbstractItemView& view) {
        const QAbstractItemModel* model = view.model();
        for (int row = 0; model != nullptr && row < model->rowCount(view.rootIndex()); ++row) {
            const QModelIndex item = model->index(row, 0, view.rootIndex());
            EXPECT_LE(item.data().toString().size(), longestAllowed) << NameOf(view);
            for (const int role : {Qt::ToolTipRole, Qt::StatusTipRole, Qt::WhatsThisRole})
                EXPECT_TRUE(PlainTip(item.data(role).toString())) << NameOf(view) << role;
        }
    }

    static void ExpectPlainActions(const QWidget& widget) {
        for (const QAction* action : widget.actions()) {
            EXPECT_LE(action->text().size(), 2 * longestShownLine + 200);
            EXPECT_LE(action->statusTip().size(), longestShownLine); // the status bar knows no HTML
        }
        if (const auto* menu = qobject_cast<const QMenu*>(&widget)) {
            EXPECT_FALSE(menu->toolTipsVisible()); // those of items are their captions
        }
    }

    /// The tooltip as it comes up when the pointer rests there.
    static void ExpectPlainShownTip(QWidget& widget) {
        if (widget.toolTip().isEmpty() || !widget.isVisible())
            return;
        QHelpEvent rest(QEvent::ToolTip, {1, 1}, widget.mapToGlobal(QPoint(1, 1)));
        QApplication::sendEvent(&widget, &rest);
        const auto shown = PlainTip(QToolTip::text());
        EXPECT_TRUE(shown) << NameOf(widget);
        EXPECT_EQ(shown.value_or(QString()).remove(QRegularExpression(QStringLiteral("\\s"))),
                  PlainToolTip(widget).remove(QRegularExpression(QStringLiteral("\\s"))));
    }

    /// Looks at every text of every widget of the program, and draws those that are visible.
    static int Walk() {
        int seen = 0;
        for (QWidget* widget : QApplication::allWidgets()) {
            ++seen;
            for (const QString& tip : {widget->toolTip(), widget->statusTip(), widget->whatsThis()})
                EXPECT_TRUE(PlainTip(tip)) << NameOf(*widget);
            for (const QString& text :
                 {widget->windowTitle(), widget->accessibleName(), widget->accessibleDescription()})
                EXPECT_LE(text.size(), longestAllowed) << NameOf(*widget);
            ExpectPlainActions(*widget);
            ExpectPlainShownTip(*widget);
            if (const auto* label = qobject_cast<QLabel*>(widget))
                ExpectPlainLabel(*label);
            if (const auto* view = qobject_cast<QAbstractItemView*>(widget))
                ExpectPlainItems(*view);
            if (const auto* field = qobject_cast<QLineEdit*>(widget)) {
                EXPECT_LE(field->text().size(), field->maxLength()) << NameOf(*widget);
            }
            if (const auto* button = qobject_cast<QAbstractButton*>(widget)) {
                EXPECT_LE(button->text().size(), 100) << NameOf(*widget);
            }
            if (const auto* bar = qobject_cast<QStatusBar*>(widget)) {
                EXPECT_LE(bar->currentMessage().size(), longestShownLine);
            }
            if (widget->isWindow() && widget->isVisible()) {
                EXPECT_FALSE(widget->grab().isNull());
            }
        }
        return seen;
    }

    void Prepare() {
        Start();
        Choose("NewUValue");
        Insert("PLASTER");
        AddGlassType(TheProject(), "CLEAR");
        TheProject().comments.constructions.Add(1, "comment");
        Choose("EditWin");
    }

    /// Gives hostile names to everything that a file or its path can name.
    void Name(const std::string& name) {
        Project& project = TheProject();
        project.constructionFile = "/nowhere/" + name + ".con";
        project.standardLibraryFile = "/nowhere/" + name + ".lby";
        project.userLibraryFile = name;
        project.userLoaded = true;
        project.standardLibrary[1].name = name;
        project.constructions[1].name = name;
        project.constructions[1].layers.Edit(1).name = name;
        project.glassTypes[1].name = name;
        project.currentGlassType = 1;
        RefreshGlassTypeList(project);
        program->ShowProject();
    }

    ScriptedPrompts silent;

    QWidget* Status(const char* label) {
        return program->findChild<QWidget*>(QLatin1String(label));
    }
};

TEST_F(HostileNamesWalk, AreAtLeastTwenty) {
    EXPECT_GE(HostileNames().size(), 20U);
}

TEST_F(HostileNamesWalk, ArePlainTextInEveryWindow) {
    Prepare();
    Press(Qt::Key_F9);
    Choose("HelpContents");
    for (const std::string& name : HostileNames()) {
        SCOPED_TRACE(name.substr(0, 60));
        Name(name);
        emit Menu("Winmenu")->aboutToShow();
        EXPECT_GT(Walk(), 80);
    }
}

TEST_F(HostileNamesWalk, AreSaidInFullByTooltipsUnlessTheyAreLong) {
    Prepare();
    for (const std::string& name : HostileNames()) {
        SCOPED_TRACE(name.substr(0, 60));
        Name(name);
        const auto tip = PlainTip(Status("FileStatus")->toolTip());
        const QString path = PathText("/nowhere/" + name + ".con");
        ASSERT_TRUE(tip);
        if (path.size() <= longestShownLine) {
            EXPECT_EQ(QString(*tip).simplified(), QString(path).simplified());
        } else {
            EXPECT_TRUE(tip->startsWith(QLatin1String("/nowhere/"))
                        && tip->endsWith(QLatin1String(".con")));
        }
    }
}

TEST_F(HostileNamesWalk, ArePlainTextInTheQuestionsAndMessagesAboutThem) {
    Prepare();
    for (const std::string& name : HostileNames()) {
        SCOPED_TRACE(name.substr(0, 60));
        Name(name);
        TheProject().changed = true;
        const auto walk = [](QWidget& box) {
            EXPECT_NE(box.findChild<QLabel*>(QStringLiteral("MessageText")), nullptr);
            Walk();
        };
        InBox(walk);
        EXPECT_FALSE(program->close());
        InBox(walk);
        ShowMessageBox({name + "\r" + name, ""}, program.get());
    }
}

TEST_F(HostileNamesWalk, ArePlainTextInTheOtherBoxes) {
    Prepare();
    for (const std::string& name : HostileNames()) {
        SCOPED_TRACE(name.substr(0, 60));
        Name(name);
        const auto walk = [](QWidget&) { Walk(); };
        InBox(walk);
        program->findChild<QAbstractButton*>(QStringLiteral("EditBut"))->setEnabled(true);
        Project& project = TheProject();
        Program parts{project, silent, [](const std::function<void()>& action) { action(); }};
        Profile(parts, program.get()).exec();
        InBox(walk);
        ChooseWindow({LineOfConstruction(project, 1)}, program.get());
        InBox(walk);
        Choose("HelpAbout");
    }
}

/// Names as the file system takes them.
std::vector<std::string> HostileFileNames() {
    std::vector<std::string> names;
    for (std::string name : HostileNames()) {
        std::replace(name.begin(), name.end(), '/', '|');
        names.push_back(name.substr(0, 200) + ".con");
    }
    names.emplace_back("<img src=zero>.con");
    return names;
}

TEST_F(HostileNamesWalk, ArePlainTextInTheFilePrompts) {
    std::filesystem::create_symlink("/dev/zero", folder.Path() / "zero");
    for (const std::string& name : HostileFileNames())
        folder.Write(name + "/" + name, "");
    Start();
    for (const std::string& name : HostileFileNames()) {
        SCOPED_TRACE(name);
        TheProject().constructionFile = (folder.Path() / name / name).string();
        for (const char* command : {"SaveProjectAs", "LoadMaterials"}) {
            InBox([this](QWidget& box) {
                auto* prompt = qobject_cast<QFileDialog*>(&box);
                ASSERT_NE(prompt, nullptr);
                QCoreApplication::processEvents(); // the names are read beside
                Walk();
                prompt->setDirectory(QString::fromStdString(folder.Path().string()));
                QCoreApplication::processEvents();
                Walk();
            });
            Choose(command);
        }
    }
}

TEST_F(HostileNamesWalk, ArePlainTextInTheQuestionsOfFilePrompts) {
    Start();
    for (const std::string& name : HostileFileNames()) {
        SCOPED_TRACE(name);
        TheProject().constructionFile = (folder.Path() / name).string();
        InBox([this](QWidget& box) {
            auto* prompt = qobject_cast<QFileDialog*>(&box);
            ASSERT_NE(prompt, nullptr);
            // The toolkit takes what stands between quotation marks for the name.
            std::ofstream(PathBytes(prompt->selectedFiles().front())) << "taken";
            InBox([](QWidget& question) {
                ASSERT_NE(qobject_cast<QMessageBox*>(&question), nullptr);
                Walk();
            });
            static_cast<QDialog*>(prompt)->accept();
        });
        Choose("SaveProjectAs");
    }
}

TEST_F(HostileNamesWalk, AreCaptionsWithoutAccessKeysInTheWindowMenu) {
    Prepare();
    Name("a&b\tCtrl+Q");
    TheProject().shownLibrary = userLibraryNumber;
    program->ShowProject();
    emit Menu("Winmenu")->aboutToShow();
    EXPECT_THAT(Captions("Winmenu"), testing::Contains(testing::HasSubstr("a&&b Ctrl+Q")));
    Area().SetHidden(UValueMDI::dialogId, true);
    EXPECT_THAT(Captions("Winmenu"),
                testing::Contains(testing::EndsWith(" Select Material : a&&b Ctrl+Q")));
}

TEST(PlainText, IsCutInItsMiddle) {
    const QString text(longestShownLine + 1, QLatin1Char('x'));
    EXPECT_EQ(Elided(text.left(longestShownLine)), text.left(longestShownLine));
    EXPECT_LT(Elided(text).size(), longestShownLine);
    EXPECT_EQ(Elided(QStringLiteral("first...last"), 8), QStringLiteral("fir\u2026ast"));
    EXPECT_EQ(ElidedLines(QStringLiteral("a\nb")), QStringLiteral("a\nb"));
}

TEST(PlainText, OfATooltipIsHtmlOnlyWhereItWouldBeTakenForSuch) {
    QWidget widget;
    SetPlainToolTip(widget, QStringLiteral("/home/a & b.con"));
    EXPECT_EQ(widget.toolTip(), QStringLiteral("/home/a & b.con"));
    SetPlainToolTip(widget, QStringLiteral("<b>x</b>"));
    EXPECT_EQ(widget.toolTip(),
              QStringLiteral("<p style='white-space: pre'>&lt;b&gt;x&lt;/b&gt;</p>"));
}

} // namespace
} // namespace strativo
