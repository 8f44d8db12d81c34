#pragma once

#include "ui/qt/widgets/floating_look.h"

/// What Qt has no words for. On an X display it is told to the window manager; elsewhere, what a display does not let
/// programs decide is left as it is. Main thread.
namespace quibbly::window_hints {

/// What windows that are made now can have.
[[nodiscard]] Surface surface();
/// To be called before the window is shown, or while it is.
void setInTaskbar(QWidget& window, bool isListed);
/// Leaves the mouse outside of this part of the window, its shadow, to what is behind it. To be called whenever the window
/// has another size.
void takeMouseOnlyIn(QWidget& window, const QRect& part);
/// Raises the window and gives it the keyboard, as the user asked for it: managers keep programs from doing so unasked.
void bringForward(QWidget& window);

}  // namespace quibbly::window_hints
