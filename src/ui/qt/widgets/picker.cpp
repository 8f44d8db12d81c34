#include "ui/qt/widgets/picker.h"

#include <algorithm>

#include <QPainter>
#include <QWheelEvent>

#include "ui/qt/widgets/colours.h"
#include "ui/qt/widgets/control_face.h"
#include "ui/qt/widgets/fonts.h"

namespace quibbly {
namespace {

constexpr int beforeText = 10;
constexpr int arrowRoom = 28;
constexpr int aboveAndBelow = 5;
constexpr double arrow = 4;
constexpr double arrowWidth = 1.5;

}  // namespace

Picker::Picker(QWidget* parent) : FollowsFont(parent) {
  Picker::followFont();
  setFocusPolicy(Qt::StrongFocus);
}

QSize Picker::sizeHint() const {
  const QFontMetrics metrics(font());
  int widest = 0;
  for (int i = 0; i < count(); ++i) widest = std::max(widest, metrics.horizontalAdvance(itemText(i)));
  return {beforeText + widest + arrowRoom, metrics.height() + 2 * aboveAndBelow};
}

void Picker::showPopup() {
  isOpen_ = true;
  QComboBox::showPopup();
  update();
}

void Picker::hidePopup() {
  isOpen_ = false;
  QComboBox::hidePopup();
  update();
}

void Picker::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  paintControlFace(*this, isOpen_, painter);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  painter.setPen(colourOf(isEnabled() ? Colour::primary : Colour::tertiary));
  const QRect inside =
      isMirrored ? rect().adjusted(arrowRoom, 0, -beforeText, 0) : rect().adjusted(beforeText, 0, -arrowRoom, 0);
  painter.drawText(inside, Qt::AlignLeading | Qt::AlignVCenter, currentText());
  const QPointF tip(isMirrored ? arrowRoom / 2.0 : width() - arrowRoom / 2.0, (height() + arrow) / 2);
  painter.setPen(QPen(colourOf(Colour::secondary), arrowWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF points[] = {tip + QPointF(-arrow, -arrow), tip, tip + QPointF(arrow, -arrow)};
  painter.drawPolyline(points, 3);
}

void Picker::followFont() { setFont(fontOf(FontRole::body)); }

void Picker::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace quibbly
