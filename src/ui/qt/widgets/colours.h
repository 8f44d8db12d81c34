#pragma once

#include <QColor>

namespace quibbly {

/// Whether the desktop is light or dark.
enum class Appearance { light, dark };

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
};

/// The one table of colours.
[[nodiscard]] QColor colourOf(Colour colour, Appearance appearance);

/// That of the application's palette, which follows the desktop; every widget hears when it changes.
[[nodiscard]] Appearance appearance();
[[nodiscard]] inline QColor colourOf(Colour colour) { return colourOf(colour, appearance()); }

}  // namespace quibbly
