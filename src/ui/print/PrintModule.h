#pragma once

#include <QString>

#include <functional>

class QPainter;
class QRectF;
class QWidget;

namespace strativo {

/// Paints a page whose printable part is the rectangle.
using PagePainter = std::function<void(QPainter& painter, const QRectF& page)>;

enum class PrintResult { printed, cancelled, failed };

/// What the module exports: prints a page, on the printer that the user chooses in a box over the
/// parent, or into a PDF file if one is named.
using PrintFunction = PrintResult (*)(QWidget* parent, const QString& title, const QString& pdfFile,
                                      const PagePainter& paint);

inline constexpr char printModule[] = "strativo-print";
inline constexpr char printFunction[] = "StrativoPrintPage";

} // namespace strativo
