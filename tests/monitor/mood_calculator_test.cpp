#include "monitor/mood_calculator.h"

#include <functional>
#include <limits>

#include <gtest/gtest.h>

#include "fakes/samples.h"
#include "monitor/piece_wise.h"

namespace quibbly {
namespace {

using S = SystemSnapshot;
using enum MacMood::Label;

constexpr double GB = 1e9;

void setDisk(S& s, double freeGB, double totalGB) {
  s.diskFreeBytes = static_cast<std::uint64_t>(freeGB * GB);
  s.diskTotalBytes = static_cast<std::uint64_t>(totalGB * GB);
}

struct MoodCase {
  const char* what;
  std::function<void(S&)> change;
  double score;
  MacMood::Label label;
};

TEST(MoodCalculatorTest, scores_the_weighted_mean_of_what_is_known) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const MoodCase cases[] = {
      {"quiet", [](S&) {}, 0.0, proud},
      {"memory 90 %, no battery",
       [](S& s) {
         s.memoryUtilizationEstimate = 0.9;
         s.batteryLevel.reset();
       },
       0.25 * (0.5 + 10.0 / 15.0 * 0.4) / 0.85 * 100, concerned},
      {"critical heat", [](S& s) { s.thermalState = RoastThermalState::critical; }, 25.0, concerned},
      {"critical heat, no battery",
       [](S& s) {
         s.thermalState = RoastThermalState::critical;
         s.batteryLevel.reset();
       },
       0.25 / 0.85 * 100, concerned},
      {"fair heat", [](S& s) { s.thermalState = RoastThermalState::fair; }, 8.75, proud},
      {"3 GB free of an unknown size",
       [](S& s) {
         s.diskFreeBytes = 3'000'000'000;
         s.diskTotalBytes.reset();
       },
       15.0, proud},
      {"20 GB free of an unknown size",
       [](S& s) {
         s.diskFreeBytes = 20'000'000'000;
         s.diskTotalBytes = 0;
       },
       0.0, proud},
      {"2 % free", [](S& s) { setDisk(s, 40, 2000); }, 15.0, proud},
      {"5 % free: a step, not the curve", [](S& s) { setDisk(s, 100, 2000); }, 15.0 * 0.75, proud},
      {"4 % free: the same step", [](S& s) { setDisk(s, 80, 2000); }, 15.0 * 0.75, proud},
      {"10 % free", [](S& s) { setDisk(s, 200, 2000); }, 15.0 * 0.4, proud},
      {"15 % free", [](S& s) { setDisk(s, 30, 200); }, 15.0 * 0.2, proud},
      {"25 % free of little", [](S& s) { setDisk(s, 30, 120); }, 0.0, proud},
      {"10.5 days up", [](S& s) { s.uptimeSeconds = 10.5 * 86'400; }, 3.75, proud},
      {"35 applications", [](S& s) { s.runningAppCount = 35; }, 7.5, proud},
      {"battery 21 %", [](S& s) { s.batteryLevel = 21; }, 0.0, proud},
      {"battery 20 %", [](S& s) { s.batteryLevel = 20; }, 6.0, proud},
      {"battery 9 %", [](S& s) { s.batteryLevel = 9; }, 12.0, proud},
      {"battery 4 %", [](S& s) { s.batteryLevel = 4; }, 15.0, proud},
      {"battery 10 %, charging",
       [](S& s) {
         s.batteryLevel = 10;
         s.isCharging = true;
       },
       1.5, proud},
      {"battery 5 %, charging unknown",
       [](S& s) {
         s.batteryLevel = 5;
         s.isCharging.reset();
       },
       12.0, proud},
      {"everything at its worst",
       [](S& s) {
         s.memoryUtilizationEstimate = 1.0;
         s.thermalState = RoastThermalState::critical;
         s.diskFreeBytes = 0;
         s.uptimeSeconds = 60 * 86'400;
         s.runningAppCount = 80;
         s.batteryLevel = 2;
       },
       100.0, requestingNewOwner},
      {"memory that is no number counts as full", [nan](S& s) { s.memoryUtilizationEstimate = nan; }, 25.0, concerned},
  };
  for (const MoodCase& c : cases) {
    S sample = fakes::quietSample();
    c.change(sample);
    const MacMood mood = MoodCalculator::score(sample);
    EXPECT_NEAR(mood.score, c.score, 1e-9) << c.what;
    EXPECT_EQ(mood.label, c.label) << c.what;
  }
}

TEST(MoodCalculatorTest, each_bound_belongs_to_the_lower_label) {
  struct BoundCase {
    double score;
    MacMood::Label label;
    std::function<void(S&)> change;
  };
  const auto fullDisk = [](S& s) { s.diskFreeBytes = 0; };
  const auto fullMemory = [](S& s) { s.memoryUtilizationEstimate = 1.0; };
  const auto heat = [](S& s) { s.thermalState = RoastThermalState::critical; };
  const auto emptyBattery = [](S& s) { s.batteryLevel = 1; };
  const auto up = [](S& s, double days) { s.uptimeSeconds = days * 86'400; };
  const BoundCase cases[] = {
      {20.0, proud, [&](S& s) { fullDisk(s), up(s, 14); }},
      {40.0, concerned, [&](S& s) { heat(s), emptyBattery(s); }},
      {60.0, disappointed, [&](S& s) { fullMemory(s), heat(s), up(s, 30); }},
      {80.0, judgingYou, [&](S& s) { fullMemory(s), heat(s), fullDisk(s), emptyBattery(s); }},
      {95.0, preparingComplaint,
       [&](S& s) { fullMemory(s), heat(s), fullDisk(s), emptyBattery(s), up(s, 14), s.runningAppCount = 50; }},
  };
  for (const BoundCase& c : cases) {
    S sample = fakes::quietSample();
    c.change(sample);
    EXPECT_EQ(MoodCalculator::score(sample).score, c.score);
    EXPECT_EQ(MoodCalculator::score(sample).label, c.label) << c.score;
  }
}

TEST(PieceWiseTest, follows_the_points_whatever_their_order) {
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
}

TEST(PieceWiseTest, meets_the_first_of_two_points_at_one_x_first) {
  const std::vector<CurvePoint> step{{10, 3}, {0, 0}, {5, 1}, {5, 2}};
  EXPECT_EQ(pieceWise(5, step), 1);
  EXPECT_DOUBLE_EQ(pieceWise(7.5, step), 2.5);
}

}  // namespace
}  // namespace quibbly
