#pragma once

#include <QColor>
#include <QPainterPath>

class QPainter;
class QRectF;

namespace quibbly::artwork {

/// A flame in a square of side 1: the whole of it, and the tongue inside.
[[nodiscard]] QPainterPath flame();
[[nodiscard]] QPainterPath innerFlame();
/// A triangle with round corners in a square of side 1, and the mark on it.
[[nodiscard]] QPainterPath triangle();
[[nodiscard]] QPainterPath exclamationMark();

/// The mascot, a flame that is not impressed, on its tile.
void paintLogo(QPainter& painter, const QRectF& square);
/// A dusk of deep blue, plum and ember.
void paintAboutBackground(QPainter& painter, const QRectF& area);

}  // namespace quibbly::artwork
