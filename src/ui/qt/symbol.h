#pragma once

#include <QIcon>

#include "ui/menu_bar_label.h"

class QPainter;
class QRectF;
class QColor;

namespace quibbly {

/// Paints a symbol in two tones: the colour and a paler one, or white on it.
void paintSymbol(QPainter& painter, MenuBarLabel::Symbol symbol, const QRectF& square, const QColor& colour);
/// Paints the filled flame in one tone.
void paintPlainFlame(QPainter& painter, const QRectF& square, const QColor& colour);

/// A symbol for a tray, sharp at every size, in a colour that is seen on light panels and on dark ones.
[[nodiscard]] QIcon trayIconOf(MenuBarLabel::Symbol symbol);

}  // namespace quibbly
