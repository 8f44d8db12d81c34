#pragma once

#include <QPainterPath>
#include <QRectF>

namespace quibbly {

/// A corner of this radius begins so far from where the edges would meet.
[[nodiscard]] constexpr double smoothCornerLength(double radius) { return 1.53 * radius; }

/// A rectangle with round corners whose curvature grows and falls again, in place of beginning at once. They pass their
/// middle where a circle of the radius does.
[[nodiscard]] QPainterPath smoothRect(const QRectF& area, double radius);

}  // namespace quibbly
