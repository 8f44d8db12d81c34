#include "ui/qt/widgets/stepper.h"

#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>

#include "ui/qt/widgets/colours.h"
#include "ui/qt/widgets/control_face.h"

namespace quibbly {
namespace {

constexpr int faceWidth = 58;
constexpr int faceHeight = 26;
constexpr int untilRepeated = 400;
constexpr int betweenSteps = 80;

}  // namespace

Stepper::Stepper(int smallest, int largest, QWidget* parent) : QSpinBox(parent) {
  setRange(smallest, largest);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  lineEdit()->hide();
}

QSize Stepper::sizeHint() const { return {faceWidth, faceHeight}; }

void Stepper::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  paintControlFace(*this, false, painter);
  const QRect half(0, 0, faceWidth / 2, faceHeight);
  painter.fillRect(QRect(faceWidth / 2, 2, 1, faceHeight - 4), colourOf(Colour::controlOutline));
  const auto paintSign = [&](const QRect& place, bool isPlus, bool isPossible) {
    constexpr double arm = 4;
    const QPointF middle = QRectF(place).center();
    painter.setPen(QPen(colourOf(isPossible ? Colour::primary : Colour::tertiary), 1.6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(middle - QPointF(arm, 0), middle + QPointF(arm, 0));
    if (isPlus) painter.drawLine(middle - QPointF(0, arm), middle + QPointF(0, arm));
  };
  paintSign(half, false, value() > minimum());
  paintSign(half.translated(faceWidth / 2, 0), true, value() < maximum());
}

void Stepper::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressed_ = event->position().x() < QWidget::width() / 2.0 ? -1 : 1;
  stepBy(pressed_);
  timer_ = startTimer(untilRepeated);
}

void Stepper::mouseReleaseEvent(QMouseEvent* /*event*/) {
  pressed_ = 0;
  if (timer_ != 0) killTimer(timer_);
  timer_ = 0;
}

void Stepper::timerEvent(QTimerEvent* event) {
  if (event->timerId() != timer_) {
    QSpinBox::timerEvent(event);
    return;
  }
  stepBy(pressed_);
  killTimer(timer_);
  timer_ = startTimer(betweenSteps);
}

void Stepper::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace quibbly
