#include "ui/qt/widgets/control_face.h"

#include <QPainter>
#include <QWidget>

#include "ui/qt/widgets/colours.h"

namespace quibbly {

void paintControlFace(const QWidget& control, bool isPressed, QPainter& painter) {
  constexpr double radius = 6;
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF face = QRectF(control.rect()).adjusted(1.5, 1.5, -1.5, -1.5);
  painter.setPen(QPen(colourOf(Colour::controlOutline), 1));
  painter.setBrush(colourOf(Colour::control));
  painter.drawRoundedRect(face, radius, radius);
  if (isPressed) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colourOf(Colour::hover));
    painter.drawRoundedRect(face, radius, radius);
  }
  if (!control.hasFocus()) return;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(colourOf(Colour::accent), 2));
  painter.drawRoundedRect(face.adjusted(-0.5, -0.5, 0.5, 0.5), radius, radius);
}

}  // namespace quibbly
