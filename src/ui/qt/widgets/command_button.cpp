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
    : FollowsFont(parent), title_(title), shortcut_(keys.toString(QKeySequence::NativeText)) {
  for (QStaticText* const text : {&title_, &shortcut_}) text->setTextFormat(Qt::PlainText);
  setText(title);
  setAccessibleName(title);
  setShortcut(keys);
  CommandButton::followFont();
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize CommandButton::sizeHint() const {
  const double width = title_.size().width() + betweenTexts + shortcut_.size().width();
  return {qCeil(width) + 2 * overhang, QFontMetrics(font()).height() + 2 * aboveAndBelow};
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
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const auto draw = [&](const QStaticText& text, bool isLeft, Colour ink) {
    const QSizeF size = text.size();
    painter.setPen(colourOf(ink));
    painter.drawStaticText(
        QPointF(isLeft ? overhang : width() - overhang - size.width(), (height() - size.height()) / 2), text);
  };
  draw(title_, !isMirrored, isEnabled() ? Colour::primary : Colour::tertiary);
  draw(shortcut_, isMirrored, Colour::tertiary);
}

void CommandButton::changeEvent(QEvent* event) {
  QAbstractButton::changeEvent(event);
  update();
}

void CommandButton::followFont() {
  setFont(fontOf(FontRole::body));
  for (QStaticText* const text : {&title_, &shortcut_}) text->prepare({}, font());
  updateGeometry();
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
