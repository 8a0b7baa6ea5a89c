#pragma once

#include "ui/print/PrintModule.h"

namespace strativo {

/// Prints a page; the printing library is loaded for the first one. A PDF file may be named to take
/// the place of the printer. Empty when it was printed or the user gave up, else what went wrong.
QString PrintPage(QWidget* parent, const QString& title, const PagePainter& paint,
                  const QString& pdfFile = {});

} // namespace strativo
