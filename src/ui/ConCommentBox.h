#pragma once

#include "ui/Program.h"

#include <QDialog>

class QPlainTextEdit;
class QPushButton;

namespace strativo {

/// Shows the comments that the construction file holds for the current construction. Text typed
/// into it is not stored anywhere.
class ConCommentBox : public QDialog {
    Q_OBJECT

public:
    explicit ConCommentBox(Program& program, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    /// Whether something was typed. On purpose nothing asks for it: the box is only for viewing.
    bool IsModified() const { return modified; }

private:
    struct Ui {
        QPlainTextEdit* Comment;
        QPushButton* OKButton;
        QPushButton* CancelButton;
    };

    void BuildControls();
    void LayOut();
    void ConnectSignals();
    void Form_Load(const Project& project);
    void Comment_Change();
    void OKButton_Click();
    void CancelButton_Click();

    Ui ui{};
    bool modified = false;
};

} // namespace strativo
