#pragma once

#include <functional>

#include <QIcon>

class QPainter;
class QRectF;

namespace quibbly {

/// An icon that is drawn anew at whatever size is asked for, into a square.
[[nodiscard]] QIcon drawnIcon(std::function<void(QPainter&, const QRectF&)> draw);

}  // namespace quibbly
