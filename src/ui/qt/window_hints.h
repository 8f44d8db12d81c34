#pragma once

class QWidget;

/// What Qt has no words for. On an X display it is told to the window manager; elsewhere, what a display does not let
/// programs decide is left as it is. Main thread.
namespace quibbly::window_hints {

/// Whether what is painted translucent is seen so.
[[nodiscard]] bool hasCompositor();
/// Also on those that the user changes to. To be called before the window is shown.
void showOnAllWorkspaces(QWidget& window);
/// To be called before the window is shown, or while it is.
void setInTaskbar(QWidget& window, bool isListed);
/// Raises the window and gives it the keyboard, as the user asked for it: managers keep programs from doing so unasked.
void bringForward(QWidget& window);

}  // namespace quibbly::window_hints
