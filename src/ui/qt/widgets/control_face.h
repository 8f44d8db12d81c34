#pragma once

class QPainter;
class QWidget;

namespace quibbly {

/// Paints the face that all controls share: with a ring when they have the keyboard, darker while they are pressed.
void paintControlFace(const QWidget& control, bool isPressed, QPainter& painter);

}  // namespace quibbly
