#pragma once

#include <QSpinBox>

namespace quibbly {

/// Two buttons that make a number smaller and larger by one; the number stands elsewhere.
class Stepper : public QSpinBox {
 public:
  Stepper(int smallest, int largest, QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  /// Scrolling the form is no step.
  void wheelEvent(QWheelEvent* event) override;

 private:
  int pressed_ = 0;  // the step that the mouse holds down, or 0
  int timer_ = 0;
};

}  // namespace quibbly
