#include "monitor/piece_wise.h"

#include <algorithm>
#include <vector>

namespace quibbly {
namespace {

double onSortedCurve(double x, std::span<const CurvePoint> points) {
  if (points.empty()) return 0.0;
  if (x <= points.front().x) return points.front().y;
  if (x >= points.back().x || points.size() == 1) return points.back().y;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const auto& [x1, y1] = points[i - 1];
    const auto& [x2, y2] = points[i];
    if (x1 <= x && x <= x2) return y1 + (x - x1) / (x2 - x1) * (y2 - y1);
  }
  return points.back().y;
}

}  // namespace

double pieceWise(double x, std::span<const CurvePoint> points) {
  if (std::ranges::is_sorted(points, {}, &CurvePoint::x)) return onSortedCurve(x, points);
  std::vector<CurvePoint> sorted;
  for (const CurvePoint& point : points) {
    sorted.insert(std::ranges::upper_bound(sorted, point.x, {}, &CurvePoint::x), point);
  }
  return onSortedCurve(x, sorted);
}

}  // namespace quibbly
