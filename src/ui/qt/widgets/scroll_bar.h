#pragma once

#include <QScrollBar>

namespace quibbly {

/// Narrow, upright and without arrows.
class ScrollBar : public QScrollBar {
 public:
  explicit ScrollBar(QWidget* parent = nullptr) : QScrollBar(Qt::Vertical, parent) {}

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quibbly
