#include "monitor/mood_calculator.h"

#include <limits>

#include <gtest/gtest.h>

#include "fakes/samples.h"
#include "monitor/piece_wise.h"

namespace quibbly {
namespace {

using fakes::all;
using fakes::Change;
using fakes::set;
using S = SystemSnapshot;
using Thermal = RoastThermalState;
using enum MacMood::Label;

Change disk(std::uint64_t freeGB, std::optional<std::uint64_t> totalGB) {
  constexpr std::uint64_t GB = 1'000'000'000;
  return all({set(&S::diskFreeBytes, freeGB * GB),
              set(&S::diskTotalBytes, totalGB ? std::optional(*totalGB * GB) : std::nullopt)});
}
Change days(double number) { return set(&S::uptimeSeconds, number * 86'400); }
Change battery(int level, std::optional<bool> charging = false) {
  return all({set(&S::batteryLevel, level), set(&S::isCharging, charging)});
}

const Change noBattery = set(&S::batteryLevel, std::nullopt);
const Change critical = set(&S::thermalState, Thermal::critical);
const Change fullMemory = set(&S::memoryUtilizationEstimate, 1.0);
const Change fullDisk = set(&S::diskFreeBytes, 0);

struct MoodCase {
  Change change;
  double score;
  MacMood::Label label;
};

void expectMood(const MoodCase& c, double tolerance) {
  S sample = fakes::quietSample();
  c.change(sample);
  const MacMood mood = MoodCalculator::score(sample);
  EXPECT_NEAR(mood.score, c.score, tolerance);
  EXPECT_EQ(mood.label, c.label) << c.score;
}

TEST(MoodCalculatorTest, scores_the_weighted_mean_of_what_is_known) {
  const double memory90 = 0.25 * (0.5 + 10.0 / 15.0 * 0.4);
  const MoodCase cases[] = {
      {all({}), 0.0, proud},
      {all({set(&S::memoryUtilizationEstimate, 0.9), noBattery}), memory90 / 0.85 * 100, concerned},
      {set(&S::memoryUtilizationEstimate, std::numeric_limits<double>::quiet_NaN()), 25.0, concerned},
      {critical, 25.0, concerned},
      {set(&S::thermalState, Thermal::serious), 18.75, proud},
      {set(&S::thermalState, Thermal::fair), 8.75, proud},
      {disk(3, std::nullopt), 15.0, proud},
      {disk(20, std::nullopt), 0.0, proud},
      {disk(20, 0), 0.0, proud},
      {disk(40, 2000), 15.0, proud},
      {disk(80, 2000), 15.0 * 0.75, proud},  // a step, not the curve
      {disk(100, 2000), 15.0 * 0.75, proud},
      {disk(200, 2000), 15.0 * 0.4, proud},
      {disk(30, 200), 15.0 * 0.2, proud},
      {disk(30, 120), 0.0, proud},
      {days(10.5), 3.75, proud},
      {set(&S::runningAppCount, 35), 7.5, proud},
      {battery(21), 0.0, proud},
      {battery(20), 6.0, proud},
      {battery(9), 12.0, proud},
      {battery(4), 15.0, proud},
      {battery(10, true), 1.5, proud},
      {battery(5, std::nullopt), 12.0, proud},
      {all({fullMemory, critical, fullDisk, days(60), set(&S::runningAppCount, 80), battery(2)}), 100.0,
       requestingNewOwner},
  };
  for (const MoodCase& c : cases) {
    SCOPED_TRACE(&c - cases);
    expectMood(c, 1e-9);
  }
}

TEST(MoodCalculatorTest, each_bound_belongs_to_the_lower_label) {
  const MoodCase cases[] = {
      {all({fullDisk, days(14)}), 20.0, proud},
      {all({critical, battery(1)}), 40.0, concerned},
      {all({fullMemory, critical, days(30)}), 60.0, disappointed},
      {all({fullMemory, critical, fullDisk, battery(1)}), 80.0, judgingYou},
      {all({fullMemory, critical, fullDisk, battery(1), days(14), set(&S::runningAppCount, 50)}), 95.0,
       preparingComplaint},
  };
  for (const MoodCase& c : cases) expectMood(c, 0);
}

TEST(PieceWiseTest, follows_the_points_whatever_their_order_and_meets_the_first_of_two_at_one_x_first) {
  const std::vector<CurvePoint> sorted{{0, 1}, {10, 2}, {20, 4}};
  const std::vector<CurvePoint> shuffled{{20, 4}, {0, 1}, {10, 2}};
  const std::pair<double, double> cases[] = {{-5, 1}, {0, 1}, {5, 1.5}, {10, 2}, {15, 3}, {20, 4}, {99, 4}};
  for (const auto& [x, y] : cases) {
    EXPECT_DOUBLE_EQ(pieceWise(x, sorted), y) << x;
    EXPECT_DOUBLE_EQ(pieceWise(x, shuffled), y) << x;
  }
  EXPECT_EQ(pieceWise(std::numeric_limits<double>::quiet_NaN(), sorted), 4);
  EXPECT_EQ(pieceWise(3, {}), 0);
  EXPECT_EQ(pieceWise(3, std::vector<CurvePoint>{{7, 5}}), 5);
  const std::vector<CurvePoint> step{{10, 3}, {0, 0}, {5, 1}, {5, 2}};
  EXPECT_EQ(pieceWise(5, step), 1);
  EXPECT_DOUBLE_EQ(pieceWise(7.5, step), 2.5);
}

}  // namespace
}  // namespace quibbly
