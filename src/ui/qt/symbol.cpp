#include "ui/qt/symbol.h"

#include <QPainter>

#include "ui/qt/artwork.h"
#include "ui/qt/widgets/drawn_icon.h"

namespace quibbly {
namespace {

using Symbol = MenuBarLabel::Symbol;

/// At least three to one against white, and against the darkest panels.
const QColor trayColour(0xEA, 0x62, 0x10);
constexpr double inset = 0.04;
constexpr double lineWidth = 0.085;
constexpr double secondTone = 0.45;

QColor secondToneOf(QColor colour) {
  colour.setAlphaF(static_cast<float>(secondTone));
  return colour;
}

/// The shape less what is inside it.
QPainterPath hollowed(QPainterPath shape, const QPainterPath& inside) {
  shape.addPath(inside);
  shape.setFillRule(Qt::OddEvenFill);
  return shape;
}

/// From now on the square that is painted in is that from 0 to 1.
void paintIn(QPainter& painter, const QRectF& square) {
  painter.setRenderHint(QPainter::Antialiasing);
  const double side = square.width() * (1 - 2 * inset);
  painter.translate(square.x() + square.width() * inset, square.y() + square.height() * inset);
  painter.scale(side, side);
}

}  // namespace

void paintPlainFlame(QPainter& painter, const QRectF& square, const QColor& colour) {
  painter.save();
  paintIn(painter, square);
  painter.fillPath(artwork::flame(), colour);
  painter.restore();
}

void paintSymbol(QPainter& painter, Symbol symbol, const QRectF& square, const QColor& colour) {
  painter.save();
  paintIn(painter, square);
  switch (symbol) {
    case Symbol::flame:
      painter.fillPath(artwork::innerFlame(), secondToneOf(colour));
      painter.strokePath(artwork::flame(), QPen(colour, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
      break;
    case Symbol::flameFill:
      painter.fillPath(hollowed(artwork::flame(), artwork::innerFlame()), colour);
      painter.fillPath(artwork::innerFlame(), secondToneOf(colour));
      break;
    case Symbol::exclamationmarkTriangleFill:
      painter.fillPath(artwork::triangle(), colour);
      painter.fillPath(artwork::exclamationMark(), Qt::white);
      break;
  }
  painter.restore();
}

QIcon trayIconOf(Symbol symbol) {
  return drawnIcon(
      [symbol](QPainter& painter, const QRectF& square) { paintSymbol(painter, symbol, square, trayColour); });
}

}  // namespace quibbly
