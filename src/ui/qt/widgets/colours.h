#pragma once

#include <optional>

#include <QColor>

#include "platform/desktop_appearance.h"

class QWidget;

namespace quibbly {

/// What a colour is for.
enum class Colour {
  window,
  panel,
  box,
  separator,
  outline,
  primary,
  secondary,
  tertiary,
  orange,
  green,
  red,
  accent,
  control,
  controlOutline,
  hover,
  knob,
  glint,
};

/// The one table of colours.
[[nodiscard]] QColor colourOf(Colour colour, Appearance appearance);

/// That of the application's palette; every widget hears when it changes.
[[nodiscard]] Appearance appearance();
/// Gives the application the palette that the user prefers; without a preference that of the desktop's theme.
void setAppearance(std::optional<Appearance> preferred);
[[nodiscard]] inline QColor colourOf(Colour colour) { return colourOf(colour, appearance()); }

/// Gives a window this ground. To be called again when its palette changes.
void setGround(QWidget& window, Colour ground);

}  // namespace quibbly
