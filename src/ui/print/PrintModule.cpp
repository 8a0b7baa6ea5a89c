#include "ui/print/PrintModule.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

using strativo::PrintResult;

// A module of its own, so that the program's start does not pay for loading the printing library.
extern "C" Q_DECL_EXPORT PrintResult StrativoPrintPage(QWidget* parent, const QString& title,
                                                       const QString& pdfFile,
                                                       const strativo::PagePainter& paint) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    if (!pdfFile.isEmpty()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(pdfFile);
    } else if (QPrintDialog(&printer, parent).exec() != QDialog::Accepted) {
        return PrintResult::cancelled;
    }
    QPainter painter;
    if (!painter.begin(&printer))
        return PrintResult::failed;
    paint(painter, QRectF(QPointF(0, 0), printer.pageRect(QPrinter::DevicePixel).size()));
    return painter.end() ? PrintResult::printed : PrintResult::failed;
}
