#include "ui/qt/widgets/toggle_switch.h"

#include <QPainter>

#include "ui/qt/widgets/colours.h"

namespace quibbly {
namespace {

constexpr int trackWidth = 34;
constexpr int trackHeight = 20;
/// Room around the switch for the ring that shows the focus.
constexpr int ring = 3;
constexpr double knobInset = 2;
constexpr double ringWidth = 2;

}  // namespace

ToggleSwitch::ToggleSwitch(QWidget* parent) : QAbstractButton(parent) {
  setCheckable(true);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ToggleSwitch::sizeHint() const { return {trackWidth + 2 * ring, trackHeight + 2 * ring}; }

void ToggleSwitch::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF track = QRectF(rect()).adjusted(ring, ring, -ring, -ring);
  const double round = track.height() / 2;
  painter.setPen(Qt::NoPen);
  painter.setBrush(colourOf(isChecked() ? Colour::accent : Colour::controlOutline));
  painter.drawRoundedRect(track, round, round);
  const bool isRight = isChecked() != (layoutDirection() == Qt::RightToLeft);
  const double side = track.height() - 2 * knobInset;
  const double x = isRight ? track.right() - knobInset - side : track.left() + knobInset;
  painter.setBrush(colourOf(Colour::knob));
  painter.drawEllipse(QRectF(x, track.top() + knobInset, side, side));
  if (!hasFocus()) return;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(colourOf(Colour::accent), ringWidth));
  painter.drawRoundedRect(track.adjusted(-ringWidth, -ringWidth, ringWidth, ringWidth), round + ringWidth,
                          round + ringWidth);
}

}  // namespace quibbly
