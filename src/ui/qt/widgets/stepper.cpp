#include "ui/qt/widgets/stepper.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "ui/qt/widgets/colours.h"
#include "ui/qt/widgets/control_face.h"

namespace quibbly {
namespace {

constexpr int faceWidth = 58;
constexpr int faceHeight = 26;
constexpr int aroundDivider = 2;
constexpr double arm = 4;
constexpr double signWidth = 1.6;
constexpr int untilRepeated = 400;
constexpr int betweenSteps = 80;

}  // namespace

Stepper::Stepper(int smallest, int largest, QWidget* parent) : QAbstractSlider(parent) {
  setRange(smallest, largest);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Stepper::sizeHint() const { return {faceWidth, faceHeight}; }

void Stepper::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  paintControlFace(*this, false, painter);
  const QRect half(0, 0, faceWidth / 2, faceHeight);
  painter.fillRect(QRect(faceWidth / 2, aroundDivider, 1, faceHeight - 2 * aroundDivider),
                   colourOf(Colour::controlOutline));
  const auto paintSign = [&](const QRect& place, bool isPlus, bool isPossible) {
    const QPointF middle = QRectF(place).center();
    painter.setPen(
        QPen(colourOf(isPossible ? Colour::primary : Colour::tertiary), signWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(middle - QPointF(arm, 0), middle + QPointF(arm, 0));
    if (isPlus) painter.drawLine(middle - QPointF(0, arm), middle + QPointF(0, arm));
  };
  paintSign(half, false, value() > minimum());
  paintSign(half.translated(faceWidth / 2, 0), true, value() < maximum());
}

void Stepper::sliderChange(SliderChange change) {
  QAbstractSlider::sliderChange(change);
  update();
}

void Stepper::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Plus:
      triggerAction(SliderSingleStepAdd);
      break;
    case Qt::Key_Down:
    case Qt::Key_Minus:
      triggerAction(SliderSingleStepSub);
      break;
    default:
      event->ignore();
  }
}

void Stepper::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const auto step = event->position().x() < width() / 2.0 ? SliderSingleStepSub : SliderSingleStepAdd;
  triggerAction(step);
  setRepeatAction(step, untilRepeated, betweenSteps);
}

void Stepper::mouseReleaseEvent(QMouseEvent* /*event*/) { setRepeatAction(SliderNoAction); }

/// A window that is hidden hears of no release.
void Stepper::hideEvent(QHideEvent* event) {
  setRepeatAction(SliderNoAction);
  QAbstractSlider::hideEvent(event);
}

void Stepper::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace quibbly
