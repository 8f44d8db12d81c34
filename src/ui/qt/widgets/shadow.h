#pragma once

class QPainter;
class QRectF;

namespace quibbly {

/// The shadow of something with round corners.
struct Shadow {
  /// Of black, from 0 to 1.
  double opacity;
  /// How far it spreads.
  double blur;
  double down;
};

/// Paints the shadow that the shape throws, as far as the painter's device reaches. The middle, which the shape hides, is
/// left out.
void paintShadow(QPainter& painter, const QRectF& shape, double radius, const Shadow& shadow);

}  // namespace quibbly
