#pragma once

#include <span>

namespace quibbly {

struct CurvePoint {
  double x = 0.0;
  double y = 0.0;
};

/// The piecewise-linear curve through the points at `x`: flat before the first and after the last one, 0 without points.
/// The points may come in any order; among equal x the first one given is met first. An x that is not a number gives the
/// last point's y.
[[nodiscard]] double pieceWise(double x, std::span<const CurvePoint> points);

}  // namespace quibbly
