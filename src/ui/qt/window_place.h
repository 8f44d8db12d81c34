#pragma once

#include <QRect>

/// Where windows go at first. Main thread, with a screen.
namespace quibbly::window_place {

/// What is free of the screen that the user is at: that of the window with the keyboard, else of the pointer.
[[nodiscard]] QRect freeArea();
/// As much of the size as there is room for, with a frame around it.
[[nodiscard]] QSize withRoomForFrame(const QSize& wanted);

}  // namespace quibbly::window_place
