#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace quibbly {

/// Where a panel of this size opens for what was clicked: below it, or above it when it is in the lower half of the screen,
/// with its middle at that of what was clicked as far as there is room. `available` is what the desktop's own bars leave
/// free of the screen.
[[nodiscard]] QPoint panelPosition(const QRect& clicked, const QSize& panel, const QRect& available);

}  // namespace quibbly
