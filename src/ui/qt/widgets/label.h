#pragma once

#include <QLabel>

#include "ui/qt/widgets/colours.h"
#include "ui/qt/widgets/follows_font.h"
#include "ui/qt/widgets/fonts.h"

namespace quibbly {

/// A text in one of the styles and colours of the tables, which follows the desktop's font and appearance.
class Label : public FollowsFont<QLabel> {
 public:
  explicit Label(FontRole role, Colour colour = Colour::primary, QWidget* parent = nullptr);

  void setColour(Colour colour);
  void setFontRole(FontRole role);
  /// Fixed width in place of the style's font.
  void setMonospaced();
  /// As many lines as it needs at the width that it is given.
  void setWraps();
  /// Leaves a text alone that is the same, and with it what the user has selected of it.
  void setTextIfChanged(const QString& text);

 protected:
  void followFont() override;
  void changeEvent(QEvent* event) override;

 private:
  void followPalette();

  FontRole role_;
  Colour colour_;
  bool isMonospaced_ = false;
};

}  // namespace quibbly
