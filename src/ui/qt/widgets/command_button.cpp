#include "ui/qt/widgets/command_button.h"

#include <QEnterEvent>
#include <QKeySequence>
#include <QPainter>

#include "ui/qt/widgets/click_on_return.h"
#include "ui/qt/widgets/colours.h"
#include "ui/qt/widgets/fonts.h"

namespace quibbly {
namespace {

constexpr int aboveAndBelow = 5;
constexpr int betweenTexts = 16;
constexpr double radius = 6;
constexpr double focusWidth = 2;

}  // namespace

CommandButton::CommandButton(const QString& title, const QKeySequence& keys, QWidget* parent)
    : QAbstractButton(parent), shortcutText_(keys.toString(QKeySequence::NativeText)) {
  setText(title);
  setAccessibleName(title);
  setShortcut(keys);
  setFont(fontOf(FontRole::body));
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize CommandButton::sizeHint() const {
  const QFontMetrics metrics(font());
  const int width = metrics.horizontalAdvance(text()) + betweenTexts + metrics.horizontalAdvance(shortcutText_);
  return {width + 2 * overhang, metrics.height() + 2 * aboveAndBelow};
}

void CommandButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF ground = QRectF(rect()).adjusted(1, 1, -1, -1);
  if (isEnabled() && (underMouse() || isDown())) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colourOf(Colour::hover));
    painter.drawRoundedRect(ground, radius, radius);
  }
  if (hasFocus()) {
    painter.setPen(QPen(colourOf(Colour::accent), focusWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(ground, radius, radius);
  }
  const QRect inside = rect().adjusted(overhang, 0, -overhang, 0);
  painter.setPen(colourOf(isEnabled() ? Colour::primary : Colour::tertiary));
  painter.drawText(inside, Qt::AlignLeading | Qt::AlignVCenter, text());
  painter.setPen(colourOf(Colour::tertiary));
  painter.drawText(inside, Qt::AlignTrailing | Qt::AlignVCenter, shortcutText_);
}

void CommandButton::changeEvent(QEvent* event) {
  QAbstractButton::changeEvent(event);
  if (event->type() == QEvent::ApplicationFontChange) setFont(fontOf(FontRole::body));
  update();
}

void CommandButton::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  update();
}

void CommandButton::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  update();
}

void CommandButton::keyPressEvent(QKeyEvent* event) {
  if (!clickOnReturn(*this, *event)) QAbstractButton::keyPressEvent(event);
}

}  // namespace quibbly
