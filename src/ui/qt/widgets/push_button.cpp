#include "ui/qt/widgets/push_button.h"

#include <QEvent>
#include <QPainter>

#include "ui/qt/widgets/click_on_return.h"
#include "ui/qt/widgets/colours.h"
#include "ui/qt/widgets/control_face.h"
#include "ui/qt/widgets/fonts.h"

namespace quibbly {
namespace {

constexpr int atTheSides = 12;
constexpr int aboveAndBelow = 5;

}  // namespace

PushButton::PushButton(const QString& title, QWidget* parent) : FollowsFont(parent) {
  setText(title);
  PushButton::followFont();
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize PushButton::sizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.horizontalAdvance(text()) + 2 * atTheSides, metrics.height() + 2 * aboveAndBelow};
}

void PushButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  paintControlFace(*this, isDown(), painter);
  painter.setPen(colourOf(isEnabled() ? Colour::primary : Colour::tertiary));
  painter.drawText(rect(), Qt::AlignCenter, text());
}

void PushButton::changeEvent(QEvent* event) {
  QAbstractButton::changeEvent(event);
  update();
}

void PushButton::followFont() {
  setFont(fontOf(FontRole::body));
  updateGeometry();
}

void PushButton::keyPressEvent(QKeyEvent* event) {
  if (!clickOnReturn(*this, *event)) QAbstractButton::keyPressEvent(event);
}

}  // namespace quibbly
