#include "ui/qt/widgets/smooth_rect.h"

#include <algorithm>
#include <numbers>

namespace quibbly {

QPainterPath smoothRect(const QRectF& area, double radius) {
  const double length = std::min(smoothCornerLength(radius), std::min(area.width(), area.height()) / 2);
  // A cubic curve from (length, 0) over (pull, 0) and (0, pull) to (0, length) has its middle at (length + 3 * pull) / 8.
  const double middle = radius * (1 - std::numbers::sqrt2 / 2);
  const double pull = std::max((8 * middle - length) / 3, 0.0);
  QPainterPath path(QPointF(area.right() - length, area.top()));
  const auto corner = [&](const QPointF& at, const QPointF& before, const QPointF& after) {
    path.lineTo(at + length * before);
    path.cubicTo(at + pull * before, at + pull * after, at + length * after);
  };
  const QPointF right(1, 0);
  const QPointF down(0, 1);
  corner(area.topRight(), -right, down);
  corner(area.bottomRight(), -down, -right);
  corner(area.bottomLeft(), right, -down);
  corner(area.topLeft(), down, right);
  path.closeSubpath();
  return path;
}

}  // namespace quibbly
