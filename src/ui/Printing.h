#pragma once

#include "ui/print/PrintModule.h"

namespace strativo {

/// The title in a form that is also a file name, with its middle left out where no file could have
/// it: the print box offers it for printing to a file.
QString DocumentName(const QString& title);

/// Prints a page, or writes it to a PDF file if one is named. The printing library is loaded on
/// first use. Returns what went wrong; empty when it was printed or the user cancelled.
QString PrintPage(QWidget* parent, const QString& title, const PagePainter& paint,
                  const QString& pdfFile = {});

} // namespace strativo
