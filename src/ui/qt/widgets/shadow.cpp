#include "ui/qt/widgets/shadow.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <QRegion>

namespace quibbly {

/// Shapes over one another, each a point smaller than the one before, whose edges fade outward as a blurred edge does.
void paintShadow(QPainter& painter, const QRectF& shape, double radius, const Shadow& shadow) {
  painter.save();
  const QRect hidden = shape.adjusted(radius, radius, -radius, -radius).toAlignedRect();
  painter.setClipRegion(QRegion(painter.window()) - hidden, Qt::IntersectClip);
  painter.setPen(Qt::NoPen);
  const double deviation = shadow.blur / 2;
  double covered = 0;
  const int steps = static_cast<int>(2 * shadow.blur);
  for (int step = 0; step < steps; ++step) {
    const double out = shadow.blur - step;
    const double wanted = shadow.opacity / 2 * std::erfc(out / (deviation * std::numbers::sqrt2));
    // What this shape has to add so that all of them over one another give what is wanted.
    const double added = (wanted - covered) / (1 - covered);
    covered = wanted;
    painter.setBrush(QColor::fromRgbF(0, 0, 0, static_cast<float>(added)));
    const double corner = std::max(radius + out, 0.0);
    painter.drawRoundedRect(shape.translated(0, shadow.down).adjusted(-out, -out, out, out), corner, corner);
  }
  painter.restore();
}

}  // namespace quibbly
