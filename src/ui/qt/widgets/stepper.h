#pragma once

#include <QAbstractSlider>

namespace quibbly {

/// Two buttons that make a number smaller and larger by one; the number stands elsewhere. To screen readers it is a slider.
class Stepper : public QAbstractSlider {
 public:
  Stepper(int smallest, int largest, QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void sliderChange(SliderChange change) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  /// Scrolling the form is no step.
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace quibbly
