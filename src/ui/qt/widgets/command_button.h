#pragma once

#include <QAbstractButton>
#include <QStaticText>

#include "ui/qt/widgets/follows_font.h"

namespace quibbly {

/// A command as a row of its own: the title at the left, the shortcut at the right.
class CommandButton : public FollowsFont<QAbstractButton> {
 public:
  /// How far the row's ground reaches beyond its text at both sides.
  static constexpr int overhang = 6;

  explicit CommandButton(const QString& title, const QKeySequence& keys = {}, QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void followFont() override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  // Laid out once.
  QStaticText title_;
  QStaticText shortcut_;
};

}  // namespace quibbly
