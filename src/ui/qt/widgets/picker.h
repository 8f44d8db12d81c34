#pragma once

#include <QComboBox>

#include "ui/qt/widgets/follows_font.h"

namespace quibbly {

/// One of several, chosen from a list that opens below.
class Picker : public FollowsFont<QComboBox> {
 public:
  explicit Picker(QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void followFont() override;
  void showPopup() override;
  void hidePopup() override;
  void paintEvent(QPaintEvent* event) override;
  /// Scrolling the form is no choice.
  void wheelEvent(QWheelEvent* event) override;

 private:
  bool isOpen_ = false;
};

}  // namespace quibbly
