#pragma once

#include <QRegion>

#include "ui/qt/widgets/colours.h"
#include "ui/qt/widgets/shadow.h"

class QPainter;
class QWidget;

namespace quibbly {

/// The look of a window without a frame: a ground with round corners, and around it room for its shadow. On a display that
/// shows nothing translucent there is no shadow, and the corners are cut off.
class FloatingLook {
 public:
  FloatingLook(double radius, const Shadow& shadow);

  /// To be called when the window is about to be shown: displays change.
  void follow();
  /// On each side of the ground.
  [[nodiscard]] int room() const { return room_; }
  /// The ground within the window.
  [[nodiscard]] QRectF ground(const QWidget& window) const;
  /// Cuts the corners off where nothing is translucent. To be called when the window has another size.
  void cut(QWidget& window) const;
  void paint(QPainter& painter, const QWidget& window, const QColor& colour, const QColor& outline) const;

 private:
  double radius_;
  Shadow shadow_;
  bool isTranslucent_ = true;
  int room_;
};

}  // namespace quibbly
