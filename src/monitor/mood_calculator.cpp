#include "monitor/mood_calculator.h"

#include <algorithm>
#include <array>

#include "monitor/piece_wise.h"
#include "records/units.h"

namespace quibbly::MoodCalculator {
namespace {

constexpr auto memoryCurve = std::to_array<CurvePoint>({{60, 0.0}, {80, 0.5}, {95, 0.9}, {98, 1.0}});  // percent
constexpr auto diskCurve = std::to_array<CurvePoint>({{2, 1.0}, {5, 0.75}, {10, 0.4}, {20, 0.0}});     // percent free
constexpr auto uptimeCurve = std::to_array<CurvePoint>({{3, 0.0}, {7, 0.25}, {14, 0.5}, {30, 1.0}});   // days
constexpr auto applicationsCurve = std::to_array<CurvePoint>({{10, 0.0}, {20, 0.4}, {35, 0.75}, {50, 1.0}});
constexpr auto thermalScores = std::to_array({0.0, 0.35, 0.75, 1.0});
static_assert(thermalScores.size() == rawValues<RoastThermalState>.size());

/// Goes down in steps while the volume is nearly full, along the curve above a tenth free.
double diskScore(const SystemSnapshot& snapshot) {
  const double freeGB = gigabytes(snapshot.diskFreeBytes);
  if (freeGB < 5.0) return 1.0;
  double percent = 100.0;
  if (snapshot.diskTotalBytes.value_or(0) != 0) {
    percent = static_cast<double>(snapshot.diskFreeBytes) / static_cast<double>(*snapshot.diskTotalBytes) * 100.0;
    if (percent <= 2.0) return 1.0;
    if (percent <= 5.0) return 0.75;
    if (percent <= 10.0) return 0.4;
  }
  if (percent >= 20.0 && freeGB >= 40.0) return 0.0;
  return pieceWise(percent, diskCurve);
}

double batteryScore(std::int64_t level, bool isCharging) {
  const double score = level > 20 ? 0.0 : level > 9 ? 0.4 : level > 4 ? 0.8 : 1.0;
  return isCharging ? score * 0.25 : score;
}

/// Sums in the order of the terms: floating-point addition is not associative, and equal samples must score equally.
class WeightedMean {
 public:
  void add(double score, double weight) {
    weighted_ += score * weight;
    weightSum_ += weight;
  }
  /// 0 to 100.
  [[nodiscard]] double percent() const {
    if (weightSum_ <= 0.0) return 0.0;
    const double raw = weighted_ / weightSum_ * 100.0;
    return std::min(raw >= 0.0 ? raw : 0.0, 100.0);
  }

 private:
  double weighted_ = 0.0;
  double weightSum_ = 0.0;
};

MacMood::Label labelFor(double score) {
  using enum MacMood::Label;
  if (score <= 20.0) return proud;
  if (score <= 40.0) return concerned;
  if (score <= 60.0) return disappointed;
  if (score <= 80.0) return judgingYou;
  if (score <= 95.0) return preparingComplaint;
  return requestingNewOwner;
}

}  // namespace

MacMood score(const SystemSnapshot& snapshot) {
  WeightedMean mean;
  mean.add(pieceWise(snapshot.memoryUtilizationEstimate * 100.0, memoryCurve), 0.25);
  mean.add(thermalScores[indexOf(snapshot.thermalState)], 0.25);
  mean.add(diskScore(snapshot), 0.15);
  mean.add(pieceWise(snapshot.uptimeSeconds / secondsPerDay, uptimeCurve), 0.1);
  mean.add(pieceWise(static_cast<double>(snapshot.runningAppCount), applicationsCurve), 0.1);
  if (snapshot.batteryLevel) {
    mean.add(batteryScore(*snapshot.batteryLevel, snapshot.isCharging.value_or(false)), 0.15);
  }
  const double score = mean.percent();
  return {.score = score, .label = labelFor(score)};
}

}  // namespace quibbly::MoodCalculator
