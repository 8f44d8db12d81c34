#include "ui/qt/artwork.h"

#include <algorithm>
#include <cmath>

#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>
#include <QRectF>
#include <QTransform>

namespace quibbly::artwork {
namespace {

const QColor flameTop(0xFF, 0x9A, 0x2E);
const QColor flameFoot(0xF0, 0x6A, 0x12);
const QColor flameHeart(0xFF, 0xD3, 0x6B);
const QColor face(0x3A, 0x17, 0x0C);

QPainterPath placed(const QPainterPath& path, const QRectF& square) {
  return QTransform(square.width(), 0, 0, square.height(), square.x(), square.y()).map(path);
}

}  // namespace

QPainterPath flame() {
  QPainterPath path({0.52, 0.03});
  path.cubicTo(0.56, 0.20, 0.72, 0.27, 0.80, 0.44);
  path.cubicTo(0.93, 0.71, 0.77, 0.97, 0.50, 0.97);
  path.cubicTo(0.23, 0.97, 0.08, 0.73, 0.18, 0.48);
  path.cubicTo(0.21, 0.40, 0.26, 0.35, 0.29, 0.27);
  path.cubicTo(0.34, 0.33, 0.37, 0.37, 0.38, 0.432);
  path.cubicTo(0.45, 0.31, 0.51, 0.18, 0.52, 0.03);
  path.closeSubpath();
  return path;
}

QPainterPath innerFlame() {
  QPainterPath path({0.51, 0.48});
  path.cubicTo(0.55, 0.58, 0.67, 0.63, 0.67, 0.77);
  path.cubicTo(0.67, 0.88, 0.60, 0.93, 0.50, 0.93);
  path.cubicTo(0.40, 0.93, 0.33, 0.87, 0.33, 0.77);
  path.cubicTo(0.33, 0.65, 0.46, 0.60, 0.51, 0.48);
  path.closeSubpath();
  return path;
}

QPainterPath triangle() {
  QPainterPath path({0.42, 0.13});
  path.quadTo(0.50, 0.00, 0.58, 0.13);
  path.lineTo(0.96, 0.79);
  path.quadTo(1.03, 0.93, 0.88, 0.93);
  path.lineTo(0.12, 0.93);
  path.quadTo(-0.03, 0.93, 0.04, 0.79);
  path.closeSubpath();
  return path;
}

QPainterPath exclamationMark() {
  QPainterPath path;
  path.addRoundedRect(QRectF(0.445, 0.30, 0.11, 0.34), 0.055, 0.055);
  path.addEllipse(QRectF(0.4325, 0.71, 0.13, 0.13));
  return path;
}

void paintLogo(QPainter& painter, const QRectF& square) {
  QLinearGradient tile(square.topLeft(), square.bottomLeft());
  tile.setColorAt(0, QColor(0x2E, 0x26, 0x40));
  tile.setColorAt(1, QColor(0x17, 0x12, 0x22));
  painter.fillRect(square, tile);
  const double inset = square.width() * 0.16;
  const QRectF body = square.adjusted(inset, inset, -inset, -inset);
  QLinearGradient fire(body.topLeft(), body.bottomLeft());
  fire.setColorAt(0, flameTop);
  fire.setColorAt(1, flameFoot);
  painter.fillPath(placed(flame(), body), fire);
  painter.fillPath(placed(innerFlame(), body), flameHeart);
  const auto line = [&](double fromX, double fromY, double toX, double toY) {
    painter.drawLine(QPointF(body.x() + body.width() * fromX, body.y() + body.height() * fromY),
                     QPointF(body.x() + body.width() * toX, body.y() + body.height() * toY));
  };
  painter.setPen(QPen(face, std::max(1.0, square.width() * 0.028), Qt::SolidLine, Qt::RoundCap));
  // Lids that are half closed, pupils that look up from below them, and a flat mouth.
  line(0.29, 0.62, 0.432, 0.62);
  line(0.57, 0.62, 0.71, 0.62);
  line(0.41, 0.80, 0.59, 0.80);
  painter.setPen(Qt::NoPen);
  painter.setBrush(face);
  const double pupil = body.width() * 0.04;
  for (const double x : {0.37, 0.65}) {
    painter.drawEllipse(QPointF(body.x() + body.width() * x, body.y() + body.height() * 0.65), pupil, pupil);
  }
}

void paintAboutBackground(QPainter& painter, const QRectF& area) {
  QLinearGradient sky(area.topLeft(), area.bottomLeft());
  sky.setColorAt(0, QColor(0x10, 0x12, 0x30));
  sky.setColorAt(0.55, QColor(0x4A, 0x16, 0x3C));
  sky.setColorAt(1, QColor(0x7A, 0x22, 0x1E));
  painter.fillRect(area, sky);
  const auto glow = [&](double x, double y, double radius, const QColor& colour) {
    QRadialGradient light(QPointF(area.x() + area.width() * x, area.y() + area.height() * y), area.width() * radius);
    // As a bell, which has no edge that the eye finds.
    for (int step = 0; step <= 10; ++step) {
      const double out = step / 10.0;
      QColor at = colour;
      at.setAlphaF(static_cast<float>(colour.alphaF() * std::pow(1 - out * out, 3)));
      light.setColorAt(out, at);
    }
    painter.fillRect(area, light);
  };
  glow(0.74, 1.10, 0.75, QColor(0xF2, 0x5A, 0x12, 0xE0));
  glow(0.42, 1.20, 0.60, QColor(0xC8, 0x2A, 0x1C, 0xB0));
  glow(0.92, 0.10, 0.60, QColor(0x6E, 0x1E, 0x58, 0x90));
}

}  // namespace quibbly::artwork
