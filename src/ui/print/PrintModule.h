#pragma once

#include <QString>

#include <functional>

class QPainter;
class QRectF;
class QWidget;

namespace strativo {

/// Paints a page whose printable part is the rectangle.
using PagePainter = std::function<void(QPainter& painter, const QRectF& page)>;

/// What the module exports: prints a page, on the printer that the user chooses in a box over the
/// parent, or into a PDF file where one is named. False when nothing was printed.
using PrintFunction = bool (*)(QWidget* parent, const QString& title, const QString& pdfFile,
                               const PagePainter& paint);

inline constexpr char printModule[] = "strativo-print";
inline constexpr char printFunction[] = "StrativoPrintPage";

} // namespace strativo
