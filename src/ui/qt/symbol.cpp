#include "ui/qt/symbol.h"

#include <QIconEngine>
#include <QPainter>
#include <QTransform>

#include "ui/qt/artwork.h"

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

/// Draws at whatever size a tray asks for.
class SymbolEngine final : public QIconEngine {
 public:
  explicit SymbolEngine(Symbol symbol) : symbol_(symbol) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
    paintSymbol(*painter, symbol_, rect, trayColour);
  }
  [[nodiscard]] QIconEngine* clone() const override { return new SymbolEngine(symbol_); }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap drawn(size);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    paint(&painter, drawn.rect(), mode, state);
    return drawn;
  }
  QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
    QList<QSize> sizes;
    for (const int side : {16, 22, 24, 32, 44, 48, 64}) sizes.append({side, side});
    return sizes;
  }

 private:
  Symbol symbol_;
};

}  // namespace

void paintSymbol(QPainter& painter, Symbol symbol, const QRectF& square, const QColor& colour) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const double side = square.width() * (1 - 2 * inset);
  painter.translate(square.x() + square.width() * inset, square.y() + square.height() * inset);
  painter.scale(side, side);
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
      painter.fillPath(hollowed(artwork::triangle(), artwork::exclamationMark()), colour);
      painter.fillPath(artwork::exclamationMark(), secondToneOf(Qt::white));
      break;
  }
  painter.restore();
}

QIcon trayIconOf(Symbol symbol) { return QIcon(new SymbolEngine(symbol)); }

}  // namespace quibbly
