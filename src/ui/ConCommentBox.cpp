#include "ui/ConCommentBox.h"

#include "edit/InfoTexts.h"
#include "ui/MessageBox.h"
#include "ui/Text.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>

namespace strativo {

ConCommentBox::ConCommentBox(Program& program, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("ConCommentBox"));
    setWindowTitle(tr("Comments"));
    setSizeGripEnabled(true);
    BuildControls();
    LayOut();
    ConnectSignals();
    Form_Load(program.project);
}

QSize ConCommentBox::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 84, fontMetrics().height() * 20};
}

void ConCommentBox::BuildControls() {
    ui.Comment = new QPlainTextEdit(this);
    ui.Comment->setObjectName(QStringLiteral("Comment"));
    ui.Comment->setLineWrapMode(QPlainTextEdit::NoWrap);
    ui.Comment->setTabChangesFocus(true);
    ui.Comment->setAcceptDrops(false);
    ui.Comment->setAccessibleName(tr("Comments"));
    ui.Comment->setToolTip(tr("Comments of this construction, as read from the construction file"));
    ui.OKButton = new QPushButton(tr("OK"), this);
    ui.OKButton->setObjectName(QStringLiteral("OKButton"));
    ui.OKButton->setDefault(true);
    ui.OKButton->setToolTip(tr("Closes the box"));
    ui.CancelButton = new QPushButton(tr("Cancel"), this);
    ui.CancelButton->setObjectName(QStringLiteral("CancelButton"));
    ui.CancelButton->setToolTip(tr("Closes the box"));
}

void ConCommentBox::LayOut() {
    auto* rows = new QVBoxLayout(this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ui.OKButton);
    buttons->addWidget(ui.CancelButton);
    rows->addWidget(ui.Comment);
    rows->addLayout(buttons);
}

void ConCommentBox::ConnectSignals() {
    connect(ui.Comment, &QPlainTextEdit::textChanged, this, &ConCommentBox::Comment_Change);
    connect(ui.OKButton, &QPushButton::clicked, this, &ConCommentBox::OKButton_Click);
    connect(ui.CancelButton, &QPushButton::clicked, this, &ConCommentBox::CancelButton_Click);
}

void ConCommentBox::Form_Load(const Project& project) {
    QString text = WithPlainLineBreaks(ToText(CommentText(project, project.currentConstruction)));
    // One shown line per comment: the line break after the last one would add an empty line.
    text.chop(1);
    ui.Comment->setPlainText(text);
    modified = false;
}

void ConCommentBox::Comment_Change() {
    modified = true;
}

void ConCommentBox::OKButton_Click() {
    accept();
}

void ConCommentBox::CancelButton_Click() {
    reject();
}

} // namespace strativo
