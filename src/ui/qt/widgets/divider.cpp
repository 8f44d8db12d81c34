#include "ui/qt/widgets/divider.h"

#include <QPainter>

#include "ui/qt/widgets/colours.h"

namespace quibbly {

Divider::Divider(QWidget* parent) : QWidget(parent) { setFixedHeight(1); }

void Divider::paintEvent(QPaintEvent* /*event*/) { QPainter(this).fillRect(rect(), colourOf(Colour::separator)); }

}  // namespace quibbly
