#include "ui/About_Strativo.h"

#include "edit/InfoTexts.h"
#include "ui/Text.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>

namespace strativo {

namespace {

constexpr int pictureSize = 64;

} // namespace

About_Strativo::About_Strativo(Program& owner, const QString& mainWindowCaption, QWidget* parent)
    : QDialog(parent), program(owner) {
    setObjectName(QStringLiteral("About_Strativo"));
    setWindowTitle(tr("About Strativo"));
    setWindowModality(Qt::WindowModal); // the help stays free
    BuildControls();
    LayOut();
    ConnectSignals();
    Form_Load(mainWindowCaption);
}

void About_Strativo::Form_Load(const QString& mainWindowCaption) {
    ui.Label1[0]->setText(mainWindowCaption);
}

QLabel* About_Strativo::AddLabel(int index, const QString& text) {
    QLabel* label = PlainLabel(text, this);
    label->setObjectName(QStringLiteral("Label1_%1").arg(index));
    return label;
}

void About_Strativo::BuildControls() {
    ui.Picture1 = new QLabel(this);
    ui.Picture1->setObjectName(QStringLiteral("Picture1"));
    ui.Picture1->setPixmap(QIcon(QStringLiteral(":/strativo.png"))
                               .pixmap(QSize(pictureSize, pictureSize), devicePixelRatioF()));
    ui.Picture1->setAccessibleName(tr("Picture of a layered wall"));
    ui.Label1[0] = AddLabel(0, tr("Brevan Strativo"));
    ui.Label1[1] = AddLabel(1, tr("Copyright © 2026 The Strativo authors"));
    ui.Label1[2] = AddLabel(2, QLatin1String(versionText));
    QFont large = ui.Label1[0]->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    large.setBold(true);
    ui.Label1[0]->setFont(large);
    ui.Close_But = new QPushButton(tr("OK"), this);
    ui.Close_But->setObjectName(QStringLiteral("Close_But"));
    ui.Close_But->setDefault(true);
    ui.Close_But->setToolTip(tr("Closes the box"));
}

void About_Strativo::LayOut() {
    auto* texts = new QVBoxLayout;
    texts->setSpacing(6);
    texts->addWidget(ui.Label1[0]);
    texts->addWidget(ui.Label1[2]);
    texts->addWidget(ui.Label1[1]);
    texts->addStretch(1);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(20);
    columns->addWidget(ui.Picture1, 0, Qt::AlignTop);
    columns->addLayout(texts);
    auto* rows = new QVBoxLayout(this);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    rows->setContentsMargins(20, 20, 20, 14);
    rows->setSpacing(18);
    rows->addLayout(columns);
    rows->addWidget(ui.Close_But, 0, Qt::AlignRight);
}

void About_Strativo::ConnectSignals() {
    connect(ui.Close_But, &QPushButton::clicked, this, &About_Strativo::Close_But_Click);
}

void About_Strativo::mousePressEvent(QMouseEvent* event) {
    // Presses on the picture and the labels arrive here too, and count; those on the button do not.
    const QWidget* pressed = childAt(event->position().toPoint());
    if (pressed == nullptr)
        Form_MouseDown(event->button());
    else if (pressed == ui.Picture1)
        Picture1_MouseDown(event->button());
    else if (pressed != ui.Close_But)
        Label1_MouseDown(event->button());
}

void About_Strativo::Form_MouseDown(Qt::MouseButton button) {
    if (button == Qt::RightButton)
        showsource();
}

void About_Strativo::Label1_MouseDown(Qt::MouseButton button) {
    if (button == Qt::RightButton)
        showsource();
}

void About_Strativo::Picture1_MouseDown(Qt::MouseButton button) {
    if (button == Qt::RightButton)
        showsource();
}

void About_Strativo::showsource() {
    program.perform([this] {
        program.prompts.ShowMessage(
            {SourceText(program.project), "Source code", Buttons::ok, Icon::exclamation});
    });
}

void About_Strativo::Close_But_Click() {
    accept();
}

} // namespace strativo
