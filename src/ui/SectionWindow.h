#pragma once

#include "calc/ThermalConditions.h"
#include "ui/Program.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QPainter;
class QPlainTextEdit;
class QPushButton;

namespace strativo {

class DrawingView;

/// Shows how the current construction conducts heat: its section to scale, with the temperature
/// through it, and the figures below. It stands beside the main window, where the project is
/// edited.
class SectionWindow : public QWidget {
    Q_OBJECT

public:
    SectionWindow(Program& owner, QWidget* mainWindow);

    /// Brings the window to the front.
    void Open();
    /// Shows the current construction as now stored, if the window is open.
    void ShowConstruction();
    /// Prints heading, drawing and figures, or writes them to a PDF file if one is named.
    void Print(const QString& pdfFile = {});

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Ui {
        QComboBox* Flow;
        QComboBox* FirstLayer;
        QLineEdit* Inside;
        QLineEdit* Outside;
        QLineEdit* Rsi;
        QLineEdit* Rse;
        QPushButton* Print;
        QPushButton* Save;
        QLabel* Heading;
        DrawingView* Section;
        QPlainTextEdit* Figures;
        QLabel* Note;
    };

    void BuildConditions();
    void BuildViews();
    void LayOut();
    void ConnectSignals();
    QLineEdit* AddNumber(const char* objectName, const QString& name);
    QSize FirstSize() const;

    HeatFlow Flow() const;
    void ReadConditions();
    void ShowNothing();
    void Save();
    void PaintPage(QPainter& painter, const QRectF& page) const;

    Program& program;
    ThermalConditions conditions;
    Ui ui{};
};

} // namespace strativo
