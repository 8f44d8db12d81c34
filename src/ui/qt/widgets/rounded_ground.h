#pragma once

#include <QColor>

class QPainter;
class QRectF;

namespace quibbly {

struct RoundedGround {
  QColor ground;
  /// One point wide, inside the area and over the ground.
  QColor outline;
};

/// Paints the ground of something with round corners, in place of what was there.
void paintRoundedGround(QPainter& painter, const QRectF& area, double radius, const RoundedGround& colours);

}  // namespace quibbly
