#include "ui/qt/widgets/fonts.h"

#include <array>

#include <QApplication>
#include <QFontDatabase>

namespace quibbly {
namespace {

/// What the sizes are those of, where the body font has thirteen.
constexpr double bodySize = 13;

struct Style {
  FontRole role;
  double size;
  QFont::Weight weight;
};

constexpr auto table = std::to_array<Style>({
    {FontRole::title2, 17, QFont::Normal},
    {FontRole::title3, 15, QFont::Normal},
    {FontRole::headline, 13, QFont::DemiBold},
    {FontRole::body, 13, QFont::Normal},
    {FontRole::callout, 12, QFont::Normal},
    {FontRole::subheadline, 11, QFont::Normal},
    {FontRole::caption, 10, QFont::Normal},
    {FontRole::caption2, 10, QFont::Normal},
});

constexpr bool isInOrder() {
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (table[i].role != static_cast<FontRole>(i)) return false;
  }
  return table.back().role == FontRole::caption2;
}
static_assert(isInOrder());

/// Desktops give their font in points or in pixels.
void scale(QFont& font, double factor) {
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * factor);
  } else {
    font.setPixelSize(qRound(font.pixelSize() * factor));
  }
}

}  // namespace

QFont fontOf(FontRole role) {
  const Style& style = table.at(static_cast<std::size_t>(role));
  QFont font = QApplication::font();
  scale(font, style.size / bodySize);
  font.setWeight(style.weight);
  return font;
}

QFont monospacedBody() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  const QFont body = QApplication::font();
  if (body.pointSizeF() > 0) {
    font.setPointSizeF(body.pointSizeF());
  } else {
    font.setPixelSize(body.pixelSize());
  }
  return font;
}

}  // namespace quibbly
