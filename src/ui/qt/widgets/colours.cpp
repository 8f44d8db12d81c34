#include "ui/qt/widgets/colours.h"

#include <array>

#include <QApplication>
#include <QPalette>
#include <QWidget>

namespace quibbly {
namespace {

struct Tones {
  Colour colour;
  QRgb light;
  QRgb dark;
};

constexpr QRgb black(int percent) { return qRgba(0, 0, 0, 255 * percent / 100); }
constexpr QRgb white(int percent) { return qRgba(255, 255, 255, 255 * percent / 100); }
constexpr QRgb solid(QRgb rgb) { return 0xff000000U | rgb; }

constexpr auto table = std::to_array<Tones>({
    {Colour::window, solid(0xECECEC), solid(0x1E1E1E)},
    {Colour::panel, solid(0xF6F6F6), solid(0x2A2A2C)},
    {Colour::box, solid(0xFFFFFF), solid(0x323234)},
    {Colour::separator, black(10), white(12)},
    {Colour::outline, black(7), white(6)},
    {Colour::primary, solid(0x1D1D1F), solid(0xF2F2F4)},
    {Colour::secondary, black(56), white(62)},
    {Colour::tertiary, black(40), white(44)},
    {Colour::orange, solid(0xC25700), solid(0xFF9F0A)},
    {Colour::green, solid(0x1E7B34), solid(0x30D158)},
    {Colour::red, solid(0xC9241A), solid(0xFF6961)},
    {Colour::accent, solid(0xD9570B), solid(0xFF8A3D)},
    {Colour::control, solid(0xFFFFFF), solid(0x48484A)},
    {Colour::controlOutline, black(16), white(10)},
    {Colour::hover, black(6), white(8)},
    {Colour::knob, solid(0xFFFFFF), solid(0xFFFFFF)},
    {Colour::glint, white(15), white(15)},
});

constexpr bool isInOrder() {
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (table[i].colour != static_cast<Colour>(i)) return false;
  }
  return table.back().colour == Colour::glint;
}
static_assert(isInOrder());

}  // namespace

QColor colourOf(Colour colour, Appearance appearance) {
  const Tones& tones = table.at(static_cast<std::size_t>(colour));
  return QColor::fromRgba(appearance == Appearance::dark ? tones.dark : tones.light);
}

Appearance appearance() {
  const QPalette palette = QApplication::palette();
  const bool isDark = palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
  return isDark ? Appearance::dark : Appearance::light;
}

void setAppearance(std::optional<Appearance> preferred) {
  // First that of the theme, to which the user may have come back.
  QApplication::setPalette(QPalette());
  if (!preferred || *preferred == appearance()) return;
  // The style mixes every other colour of the palette from these two.
  QPalette palette(colourOf(Colour::control, *preferred), colourOf(Colour::window, *preferred));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, colourOf(Colour::primary, *preferred));
  }
  palette.setColor(QPalette::Base, colourOf(Colour::box, *preferred));
  palette.setColor(QPalette::Highlight, colourOf(Colour::accent, *preferred));
  QApplication::setPalette(palette);
}

void setGround(QWidget& window, Colour ground) {
  QPalette colours = window.palette();
  if (colours.color(QPalette::Window) == colourOf(ground)) return;
  colours.setColor(QPalette::Window, colourOf(ground));
  window.setPalette(colours);
}

}  // namespace quibbly
