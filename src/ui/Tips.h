#pragma once

#include <QObject>
#include <QString>

namespace strativo {

/// The text in lines of at most so many characters, broken at blanks where there are any.
QString InLines(const QString& text, int longest);

/// Shows the tool tips of all windows: in lines of at most 60 characters, and below the whole
/// control (above it where the screen ends), so that none covers the row or the point that it is
/// about.
class Tips : public QObject {
public:
    explicit Tips(QObject* parent);

    static constexpr int longestLine = 60;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace strativo
