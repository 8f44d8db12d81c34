#pragma once

#include <QAbstractButton>

namespace quibbly {

/// A button as wide as its title.
class PushButton : public QAbstractButton {
 public:
  explicit PushButton(const QString& title, QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace quibbly
