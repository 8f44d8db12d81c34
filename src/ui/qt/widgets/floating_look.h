#pragma once

#include <QRegion>

#include "ui/qt/widgets/rounded_ground.h"
#include "ui/qt/widgets/shadow.h"

class QPainter;
class QWidget;

namespace quibbly {

/// Whether what is painted translucent is seen so.
enum class Surface { opaque, translucent };

/// The look of a window without a frame: a ground with round corners, and around it room for its shadow. On a display that
/// shows nothing translucent there is no shadow, and the corners are cut off.
class FloatingLook {
 public:
  FloatingLook(double radius, const Shadow& shadow, Surface surface);

  /// Makes the window one of that surface. To be called before it is shown.
  void prepare(QWidget& window) const;
  [[nodiscard]] Surface surface() const { return surface_; }
  /// On each side of the ground.
  [[nodiscard]] int room() const { return room_; }
  /// The ground within the window.
  [[nodiscard]] QRectF ground(const QWidget& window) const;
  /// Cuts the corners off where nothing is translucent. To be called when the window has another size.
  void cut(QWidget& window) const;
  void paint(QPainter& painter, const QWidget& window, const RoundedGround& colours) const;

 private:
  double radius_;
  Shadow shadow_;
  Surface surface_;
  int room_;
};

}  // namespace quibbly
