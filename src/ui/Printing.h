#pragma once

#include "ui/print/PrintModule.h"

namespace strativo {

/// Prints a page, or writes it to a PDF file if one is named. The printing library is loaded on
/// first use. Returns what went wrong; empty when it was printed or the user cancelled.
QString PrintPage(QWidget* parent, const QString& title, const PagePainter& paint,
                  const QString& pdfFile = {});

} // namespace strativo
