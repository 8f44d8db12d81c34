#include "ui/qt/panel_placement.h"

#include <algorithm>

namespace quibbly {
namespace {

constexpr int gap = 4;

/// The start nearest to the wanted one at which the length is inside, off the edges; the first when there is no room.
int inside(int wanted, int length, int first, int room) {
  return std::max(first + gap, std::min(wanted, first + room - gap - length));
}

}  // namespace

QPoint panelPosition(const QRect& clicked, const QSize& panel, const QRect& available) {
  const bool isInUpperHalf = clicked.center().y() <= available.center().y();
  const int y = isInUpperHalf ? clicked.y() + clicked.height() + gap : clicked.y() - gap - panel.height();
  const int x = clicked.x() + (clicked.width() - panel.width()) / 2;
  return {inside(x, panel.width(), available.x(), available.width()),
          inside(y, panel.height(), available.y(), available.height())};
}

}  // namespace quibbly
