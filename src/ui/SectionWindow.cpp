#include "ui/SectionWindow.h"

#include "calc/ThermalText.h"
#include "draw/Section.h"
#include "draw/Svg.h"
#include "edit/ConstructionSlots.h"
#include "project/SaveDrawing.h"
#include "text/Format.h"
#include "ui/Appearance.h"
#include "ui/DrawingView.h"
#include "ui/ElidedLabel.h"
#include "ui/KeyRepeat.h"
#include "ui/Printing.h"
#include "ui/Text.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTextOption>

namespace strativo {

namespace {

/// Takes over a usable number; other text is shown as invalid and changes nothing.
bool TakeNumber(QLineEdit& field, double lowest, double highest, std::optional<double>& value) {
    const std::string text = ToBytes(field.text());
    const auto number = NumberWithin(text, lowest, highest);
    const bool usable = number || text.empty();
    QPalette palette;
    if (!usable)
        palette.setColor(QPalette::Text,
                         Readable(QColor(0xC6, 0x28, 0x28), palette.color(QPalette::Base)));
    field.setPalette(palette);
    if (usable)
        value = number;
    return usable;
}

QString HeadingOf(const Construction& construction, int number) {
    const bool transparent = construction.type == transparentType;
    return SectionWindow::tr("%1  %2  (%3)   outside to inside")
        .arg(ToText(ConstructionTitle(number)), ToText(construction.name),
             transparent ? SectionWindow::tr("Transparent") : SectionWindow::tr("Opaque"));
}

} // namespace

SectionWindow::SectionWindow(Program& owner, QWidget* mainWindow)
    : QWidget(mainWindow, Qt::Window), program(owner) {
    setObjectName(QStringLiteral("SectionWindow"));
    setWindowTitle(tr("Section"));
    BuildConditions();
    BuildViews();
    LayOut();
    ConnectSignals();
    resize(FirstSize());
}

QLineEdit* SectionWindow::AddNumber(const char* objectName, const QString& name) {
    auto* field = new QLineEdit(this);
    field->setObjectName(QLatin1String(objectName));
    field->setAccessibleName(name);
    field->setToolTip(name);
    field->setMaximumWidth(fontMetrics().averageCharWidth() * 12);
    return field;
}

void SectionWindow::BuildConditions() {
    ui.Flow = new QComboBox(this);
    ui.Flow->setObjectName(QStringLiteral("Flow"));
    ui.Flow->setAccessibleName(tr("Direction of heat flow"));
    ui.Flow->addItems({tr("horizontal (walls)"), tr("upward (roofs)"), tr("downward (floors)")});
    ui.FirstLayer = new QComboBox(this);
    ui.FirstLayer->setObjectName(QStringLiteral("FirstLayer"));
    ui.FirstLayer->setAccessibleName(tr("Side that layer 1 faces"));
    ui.FirstLayer->addItems({tr("outside"), tr("inside")});
    ui.Inside = AddNumber("Inside", tr("Inside air temperature, °C"));
    ui.Outside = AddNumber("Outside", tr("Outside air temperature, °C"));
    ui.Rsi = AddNumber("Rsi", tr("Inside surface resistance, m2K/W"));
    ui.Rse = AddNumber("Rse", tr("Outside surface resistance, m2K/W"));
    const AirTemperatures usual;
    ui.Inside->setPlaceholderText(ToText(FormatGeneral(usual.inside)));
    ui.Outside->setPlaceholderText(ToText(FormatGeneral(usual.outside)));
    ui.Print = new QPushButton(tr("&Print..."), this);
    ui.Print->setObjectName(QStringLiteral("Print"));
    ui.Print->setToolTip(tr("Print (Ctrl+P)"));
    ui.Save = new QPushButton(tr("Sa&ve as SVG..."), this);
    ui.Save->setObjectName(QStringLiteral("Save"));
}

void SectionWindow::BuildViews() {
    ui.Heading = new ElidedLabel(longestShownLine, this);
    ui.Heading->setObjectName(QStringLiteral("Heading"));
    ui.Heading->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    QFont bold = font();
    bold.setBold(true);
    ui.Heading->setFont(bold);
    ui.Section = new DrawingView(this);
    ui.Section->setObjectName(QStringLiteral("Section"));
    ui.Section->setAccessibleName(tr("Section"));
    ui.Figures = new QPlainTextEdit(this);
    ui.Figures->setObjectName(QStringLiteral("Figures"));
    ui.Figures->setAccessibleName(tr("Thermal figures"));
    ui.Figures->setReadOnly(true);
    ui.Figures->setTabChangesFocus(true);
    ui.Figures->setLineWrapMode(QPlainTextEdit::NoWrap);
    ui.Figures->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPointSizeF(font().pointSizeF());
    ui.Figures->setFont(fixed);
    ui.Note = PlainLabel(tr(cavityNote), this);
    ui.Note->setObjectName(QStringLiteral("Note"));
    ui.Note->setWordWrap(true);
}

void SectionWindow::LayOut() {
    struct Labelled {
        const char* text;
        QWidget* field;
    };
    const Labelled upper[] = {{QT_TR_NOOP("&Heat flow"), ui.Flow},
                              {QT_TR_NOOP("&Inside °C"), ui.Inside},
                              {QT_TR_NOOP("R&si m2K/W"), ui.Rsi}};
    const Labelled lower[] = {{QT_TR_NOOP("&Layer 1 faces"), ui.FirstLayer},
                              {QT_TR_NOOP("&Outside °C"), ui.Outside},
                              {QT_TR_NOOP("Rs&e m2K/W"), ui.Rse}};
    auto* grid = new QGridLayout(this);
    const auto addRow = [&](int row, const auto& fields) {
        int column = 0;
        for (const auto& [text, field] : fields) {
            QLabel* label = PlainLabel(tr(text), this);
            label->setBuddy(field);
            grid->addWidget(label, row, column++);
            grid->addWidget(field, row, column++);
        }
    };
    addRow(0, upper);
    addRow(1, lower);
    constexpr int spare = 6;
    grid->setColumnStretch(spare, 1);
    grid->addWidget(ui.Print, 0, spare + 1);
    grid->addWidget(ui.Save, 1, spare + 1);
    grid->addWidget(ui.Heading, 2, 0, 1, spare + 2);
    grid->addWidget(ui.Section, 3, 0, 1, spare + 2);
    grid->addWidget(ui.Figures, 4, 0, 1, spare + 2);
    grid->addWidget(ui.Note, 5, 0, 1, spare + 2);
    grid->setRowStretch(3, 1);
    grid->setRowStretch(4, 1);
    QWidget* last = ui.Flow;
    for (QWidget* next : std::initializer_list<QWidget*>{
             ui.FirstLayer, ui.Inside, ui.Outside, ui.Rsi, ui.Rse, ui.Print, ui.Save, ui.Figures}) {
        setTabOrder(last, next);
        last = next;
    }
}

QSize SectionWindow::FirstSize() const {
    constexpr int columns = 104; // characters in the longest line of figures
    constexpr int lines = 46;
    const QFontMetrics fixed(ui.Figures->font());
    const QSize wanted(fixed.averageCharWidth() * columns, fontMetrics().height() * lines);
    return wanted.boundedTo(screen()->availableSize() * 9 / 10);
}

void SectionWindow::ConnectSignals() {
    for (QComboBox* box : {ui.Flow, ui.FirstLayer})
        connect(box, &QComboBox::currentIndexChanged, this, &SectionWindow::ReadConditions);
    for (QLineEdit* field : {ui.Inside, ui.Outside, ui.Rsi, ui.Rse})
        connect(field, &QLineEdit::textChanged, this, &SectionWindow::ReadConditions);
    connect(ui.Print, &QPushButton::clicked, this, [this] { Print(); });
    connect(ui.Save, &QPushButton::clicked, this, &SectionWindow::Save);
    // The lists would take the key for a search if they were asked first.
    ActOncePerPress(new QShortcut(QKeySequence::Print, this), [this] { ui.Print->click(); });
}

HeatFlow SectionWindow::Flow() const {
    return heatFlows.at(static_cast<std::size_t>(ui.Flow->currentIndex()));
}

void SectionWindow::ReadConditions() {
    const AirTemperatures usual;
    std::optional<double> inside = conditions.air.inside;
    std::optional<double> outside = conditions.air.outside;
    TakeNumber(*ui.Inside, lowestTemperature, highestTemperature, inside);
    TakeNumber(*ui.Outside, lowestTemperature, highestTemperature, outside);
    TakeNumber(*ui.Rsi, 0, largestFilm, conditions.insideFilm);
    TakeNumber(*ui.Rse, 0, largestFilm, conditions.outsideFilm);
    conditions.air = {inside.value_or(usual.inside), outside.value_or(usual.outside)};
    conditions.firstLayer =
        ui.FirstLayer->currentIndex() == 0 ? FirstLayer::outside : FirstLayer::inside;
    ShowConstruction();
}

void SectionWindow::Open() {
    show();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
    ReadConditions();
}

void SectionWindow::ShowConstruction() {
    if (!isVisible())
        return;
    const Films films = FilmsOf(Flow());
    ui.Rsi->setPlaceholderText(ToText(FormatNumber(films.inside, "0.00")));
    ui.Rse->setPlaceholderText(ToText(FormatNumber(films.outside, "0.00")));
    const int number = program.project.currentConstruction;
    const bool any = InUse(program.project, number);
    ui.Print->setEnabled(any);
    ui.Save->setEnabled(any);
    if (!any) {
        ShowNothing();
        return;
    }
    const Construction& construction = program.project.constructions[number];
    SetPlainText(*ui.Heading, HeadingOf(construction, number));
    ui.Section->Show(DrawSection(construction, conditions, Flow()));
    QString figures;
    for (const std::string& line : ThermalLines(construction, conditions, {Flow()}))
        figures += ToText(line) + QLatin1Char('\n');
    if (figures != ui.Figures->toPlainText())
        ui.Figures->setPlainText(figures);
}

void SectionWindow::ShowNothing() {
    ui.Heading->setText(tr("No construction"));
    ui.Section->Show({});
    ui.Figures->clear();
}

void SectionWindow::Save() {
    const int number = program.project.currentConstruction;
    const QString name = DocumentName(
        ToText(ConstructionTitle(number) + ' ' + program.project.constructions[number].name));
    program.perform([&] {
        SaveDrawing(program.project, PathBytes(name) + ".svg", SvgFile(ui.Section->Shown()),
                    program.prompts);
    });
}

void SectionWindow::Print(const QString& pdfFile) {
    const QString failure = PrintPage(
        this, ui.Heading->text(),
        [this](QPainter& painter, const QRectF& page) { PaintPage(painter, page); }, pdfFile);
    if (!failure.isEmpty())
        program.perform([&] {
            Message message{tr("The section cannot be printed: %1").arg(failure).toStdString(), ""};
            message.encoding = Encoding::utf8;
            program.prompts.ShowMessage(message);
        });
}

void SectionWindow::PaintPage(QPainter& painter, const QRectF& page) const {
    constexpr double unitsPerInch = 96;
    constexpr int columns = 104;
    const Drawing& drawing = ui.Section->Shown();
    const double dotsPerUnit = painter.device()->logicalDpiX() / unitsPerInch;
    painter.setFont(QFont(font().family(), 11, QFont::Bold));
    const double line = painter.fontMetrics().lineSpacing();
    QTextOption wrapped;
    wrapped.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    painter.drawText(page, ui.Heading->text(), wrapped);
    const QRectF heading = painter.boundingRect(page, ui.Heading->text(), wrapped);
    const double height =
        std::min(drawing.height * dotsPerUnit, drawing.height * page.width() / drawing.width);
    const QRectF place(page.x(), heading.bottom() + line / 2, page.width(), height);
    painter.setFont(font());
    PaintDrawing(painter, drawing, place, dotsPerUnit);
    QFont fixed(ui.Figures->font().family());
    fixed.setPixelSize(100);
    const double widest = QFontMetricsF(fixed).averageCharWidth() * columns / fixed.pixelSize();
    fixed.setPixelSize(qRound(std::min(page.width() / widest, 10 * dotsPerUnit)));
    painter.setFont(fixed);
    painter.setPen(Qt::black);
    painter.drawText(QRectF(page.x(), place.bottom() + line, page.width(), page.height()),
                     Qt::TextWordWrap,
                     ui.Figures->toPlainText() + QLatin1Char('\n') + ui.Note->text());
}

void SectionWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace strativo
