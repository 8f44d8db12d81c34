#include "ui/qt/widgets/floating_look.h"

#include <cmath>

#include <QPainter>
#include <QPainterPath>
#include <QWidget>

#include "ui/qt/window_hints.h"

namespace quibbly {
namespace {

int roomFor(const Shadow& shadow) { return static_cast<int>(std::ceil(shadow.blur + shadow.down)); }

}  // namespace

FloatingLook::FloatingLook(double radius, const Shadow& shadow)
    : radius_(radius), shadow_(shadow), room_(roomFor(shadow)) {}

void FloatingLook::follow() {
  isTranslucent_ = window_hints::hasCompositor();
  room_ = isTranslucent_ ? roomFor(shadow_) : 0;
}

QRectF FloatingLook::ground(const QWidget& window) const {
  return QRectF(window.rect()).adjusted(room_, room_, -room_, -room_);
}

void FloatingLook::cut(QWidget& window) const {
  if (isTranslucent_) {
    window.clearMask();
    return;
  }
  QPainterPath outline;
  outline.addRoundedRect(ground(window), radius_, radius_);
  window.setMask(QRegion(outline.toFillPolygon().toPolygon()));
}

void FloatingLook::paint(QPainter& painter, const QWidget& window, const QColor& colour, const QColor& outline) const {
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF shape = ground(window);
  if (isTranslucent_) paintShadow(painter, shape, radius_, shadow_);
  // What is under a translucent ground is the desktop, not the shadow.
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawRoundedRect(shape, radius_, radius_);
  painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  painter.setPen(QPen(outline, 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(shape.adjusted(0.5, 0.5, -0.5, -0.5), radius_, radius_);
}

}  // namespace quibbly
