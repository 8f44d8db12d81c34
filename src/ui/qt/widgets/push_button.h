#pragma once

#include <QAbstractButton>

#include "ui/qt/widgets/follows_font.h"

namespace quibbly {

/// A button as wide as its title.
class PushButton : public FollowsFont<QAbstractButton> {
 public:
  explicit PushButton(const QString& title, QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void followFont() override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace quibbly
