#pragma once

#include <QEvent>

namespace quibbly {

/// A widget in a font of the table. It hears when the application has another font; the windows have to pass that on.
template <typename Base>
class FollowsFont : public Base {
 public:
  using Base::Base;

 protected:
  virtual void followFont() = 0;

  bool event(QEvent* event) override {
    const bool isDone = Base::event(event);
    if (event->type() == QEvent::ApplicationFontChange) followFont();
    return isDone;
  }
};

}  // namespace quibbly
