#include "ui/qt/widgets/rounded_ground.h"

#include <cmath>

#include <QPainter>
#include <QRectF>

#include "ui/qt/widgets/smooth_rect.h"

namespace quibbly {
namespace {

/// What is seen of two colours that lie over one another.
QColor over(const QColor& above, const QColor& below) {
  const float left = below.alphaF() * (1 - above.alphaF());
  const float alpha = above.alphaF() + left;
  if (alpha == 0) return Qt::transparent;
  const auto mixed = [&](float upper, float lower) { return (upper * above.alphaF() + lower * left) / alpha; };
  return QColor::fromRgbF(mixed(above.redF(), below.redF()), mixed(above.greenF(), below.greenF()),
                          mixed(above.blueF(), below.blueF()), alpha);
}

}  // namespace

/// Only the bands with the corners need shapes. The outline is filled: for every strip of a long line that it draws, Qt wakes
/// another thread.
void paintRoundedGround(QPainter& painter, const QRectF& area, double radius, const RoundedGround& colours) {
  const QColor outline = over(colours.outline, colours.ground);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  const QSizeF band(area.width(), std::ceil(smoothCornerLength(radius)));
  const QRectF middle = area.adjusted(0, band.height(), 0, -band.height());
  painter.fillRect(middle, outline);
  painter.fillRect(middle.adjusted(1, 0, -1, 0), colours.ground);
  for (const double top : {area.top(), middle.bottom()}) {
    painter.save();
    painter.setClipRect(QRectF({area.left(), top}, band), Qt::IntersectClip);
    painter.fillPath(smoothRect(area, radius), outline);
    painter.fillPath(smoothRect(area.adjusted(1, 1, -1, -1), radius - 1), colours.ground);
    painter.restore();
  }
  painter.restore();
}

}  // namespace quibbly
