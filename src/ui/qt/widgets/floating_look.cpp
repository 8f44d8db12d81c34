#include "ui/qt/widgets/floating_look.h"

#include <cmath>

#include <QPainter>
#include <QWidget>

#include "ui/qt/widgets/smooth_rect.h"

namespace quibbly {
namespace {

int roomFor(const Shadow& shadow) { return static_cast<int>(std::ceil(shadow.blur + shadow.down)); }

}  // namespace

FloatingLook::FloatingLook(double radius, const Shadow& shadow, Surface surface)
    : radius_(radius),
      shadow_(shadow),
      surface_(surface),
      room_(surface == Surface::translucent ? roomFor(shadow) : 0) {}

void FloatingLook::prepare(QWidget& window) const {
  if (surface_ == Surface::translucent) window.setAttribute(Qt::WA_TranslucentBackground);
}

QRectF FloatingLook::ground(const QWidget& window) const {
  return QRectF(window.rect()).adjusted(room_, room_, -room_, -room_);
}

void FloatingLook::cut(QWidget& window) const {
  if (surface_ == Surface::translucent) return;
  window.setMask(QRegion(smoothRect(ground(window), radius_).toFillPolygon().toPolygon()));
}

void FloatingLook::paint(QPainter& painter, const QWidget& window, const RoundedGround& colours) const {
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF shape = ground(window);
  if (surface_ == Surface::translucent) paintShadow(painter, shape, radius_, shadow_);
  // In place of the shadow below: what is under a translucent ground is the desktop.
  paintRoundedGround(painter, shape, radius_, colours);
}

}  // namespace quibbly
