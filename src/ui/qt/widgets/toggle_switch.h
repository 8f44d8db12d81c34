#pragma once

#include <QAbstractButton>

namespace quibbly {

/// Something that is on or off.
class ToggleSwitch : public QAbstractButton {
 public:
  explicit ToggleSwitch(QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quibbly
