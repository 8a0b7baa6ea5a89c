#pragma once

#include "ui/Program.h"

#include <QDialog>

class QLabel;
class QPushButton;

namespace strativo {

/// The About box. A right click on it shows which sources the program's windows were made from.
class About_Strativo : public QDialog {
    Q_OBJECT

public:
    /// Shows the main window's caption as the program's name.
    About_Strativo(Program& owner, const QString& mainWindowCaption, QWidget* parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    struct Ui {
        QLabel* Picture1;
        QLabel* Label1[3];
        QPushButton* Close_But;
    };

    void BuildControls();
    void LayOut();
    void ConnectSignals();
    QLabel* AddLabel(int index, const QString& text);
    void Form_Load(const QString& mainWindowCaption);
    void Form_MouseDown(Qt::MouseButton button);
    void Label1_MouseDown(Qt::MouseButton button);
    void Picture1_MouseDown(Qt::MouseButton button);
    void Close_But_Click();
    void showsource();

    Program& program;
    Ui ui{};
};

} // namespace strativo
