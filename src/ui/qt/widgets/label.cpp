#include "ui/qt/widgets/label.h"

#include <QEvent>

namespace quibbly {

Label::Label(FontRole role, Colour colour, QWidget* parent) : FollowsFont(parent), role_(role), colour_(colour) {
  setTextFormat(Qt::PlainText);
  Label::followFont();
  followPalette();
}

void Label::setColour(Colour colour) {
  colour_ = colour;
  followPalette();
}

void Label::setFontRole(FontRole role) {
  role_ = role;
  followFont();
}

void Label::setMonospaced() {
  isMonospaced_ = true;
  followFont();
}

void Label::setWraps() {
  setWordWrap(true);
  // A label that wraps has no width of its own, and its height is that of its text at the width that it gets.
  setMinimumWidth(1);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void Label::setTextIfChanged(const QString& text) {
  if (text != this->text()) setText(text);
}

void Label::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) followPalette();
}

void Label::followFont() {
  const QFont wanted = isMonospaced_ ? monospacedBody() : fontOf(role_);
  if (font() != wanted) setFont(wanted);
}

void Label::followPalette() {
  QPalette colours = palette();
  const QColor ink = colourOf(colour_);
  if (colours.color(QPalette::WindowText) == ink) return;
  colours.setColor(QPalette::WindowText, ink);
  setPalette(colours);
}

}  // namespace quibbly
