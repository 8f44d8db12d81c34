#include "ui/qt/widgets/scroll_bar.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

#include "ui/qt/widgets/colours.h"

namespace quibbly {
namespace {

constexpr int barWidth = 12;
constexpr int aroundHandle = 3;

}  // namespace

/// One without any height would not be shown.
QSize ScrollBar::sizeHint() const { return {barWidth, barWidth}; }

/// The handle is where the style has it, so that it is taken hold of where it is seen.
void ScrollBar::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionSlider option;
  initStyleOption(&option);
  const QRect handle = style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colourOf(isSliderDown() || underMouse() ? Colour::secondary : Colour::tertiary));
  const QRectF shape = QRectF(handle).adjusted(aroundHandle, aroundHandle, -aroundHandle, -aroundHandle);
  painter.drawRoundedRect(shape, shape.width() / 2, shape.width() / 2);
}

}  // namespace quibbly
