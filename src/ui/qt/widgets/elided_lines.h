#pragma once

#include <QFont>
#include <QString>

namespace quibbly {

/// The text broken into lines of this width, at most so many: what does not fit is cut, and three dots tell so.
[[nodiscard]] QString elidedLines(const QString& text, const QFont& font, int width, int mostLines);

}  // namespace quibbly
