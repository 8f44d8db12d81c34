#include "ui/qt/widgets/picker.h"

#include <algorithm>

#include <QAbstractItemView>
#include <QEvent>
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

}  // namespace

Picker::Picker(QWidget* parent) : QComboBox(parent) {
  setFont(fontOf(FontRole::body));
  setFocusPolicy(Qt::StrongFocus);
}

QSize Picker::sizeHint() const {
  const QFontMetrics metrics(font());
  int widest = 0;
  for (int i = 0; i < count(); ++i) widest = std::max(widest, metrics.horizontalAdvance(itemText(i)));
  return {beforeText + widest + arrowRoom, metrics.height() + 2 * aboveAndBelow};
}

void Picker::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  paintControlFace(*this, view()->isVisible(), painter);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  painter.setPen(colourOf(isEnabled() ? Colour::primary : Colour::tertiary));
  const QRect inside =
      isMirrored ? rect().adjusted(arrowRoom, 0, -beforeText, 0) : rect().adjusted(beforeText, 0, -arrowRoom, 0);
  painter.drawText(inside, Qt::AlignLeading | Qt::AlignVCenter, currentText());
  const QPointF tip(isMirrored ? arrowRoom / 2.0 : width() - arrowRoom / 2.0, height() / 2.0 + 2);
  painter.setPen(QPen(colourOf(Colour::secondary), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF arrow[] = {tip + QPointF(-4, -4), tip, tip + QPointF(4, -4)};
  painter.drawPolyline(arrow, 3);
}

void Picker::changeEvent(QEvent* event) {
  QComboBox::changeEvent(event);
  if (event->type() == QEvent::ApplicationFontChange) setFont(fontOf(FontRole::body));
}

void Picker::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace quibbly
