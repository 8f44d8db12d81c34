#pragma once

#include <QComboBox>

namespace quibbly {

/// One of several, chosen from a list that opens below.
class Picker : public QComboBox {
 public:
  explicit Picker(QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  /// Scrolling the form is no choice.
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace quibbly
