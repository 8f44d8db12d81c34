#pragma once

#include <QWidget>

namespace quibbly {

/// A hairline between two things above one another.
class Divider : public QWidget {
 public:
  explicit Divider(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quibbly
