#include "ui/dashboard_contents.h"

#include <array>
#include <cstdio>

#include "records/units.h"

namespace quibbly {
namespace {

using Row = DashboardContents::Row;

std::string withoutDecimals(double number) {
  std::array<char, 352> digits{};  // as many as the largest double has
  (void)std::snprintf(digits.data(), digits.size(), "%.0f", number);
  return digits.data();
}

std::string cutOffPercent(double fraction) { return "~" + std::to_string(truncatedToInteger(fraction * 100)) + "%"; }

std::vector<Row> estimatesOf(const SystemSnapshot& snapshot, const TimeOfDay& timeOfDay) {
  std::vector<Row> rows{{"CPU", cutOffPercent(snapshot.cpuUsage)},
                        {"RAM", cutOffPercent(snapshot.memoryUtilizationEstimate)}};
  if (snapshot.batteryLevel) rows.push_back({"Battery", std::to_string(*snapshot.batteryLevel) + "%"});
  rows.push_back({"Apps", std::to_string(snapshot.runningAppCount)});
  rows.push_back({"Thermal", std::string(rawValue(snapshot.thermalState))});
  rows.push_back({"Captured", timeOfDay(snapshot.capturedAt)});
  return rows;
}

}  // namespace

DashboardContents dashboardContents(const PanelState& state, const TimeOfDay& timeOfDay) {
  DashboardContents contents;
  contents.today = {{"Mac Mood", std::string(displayText(state.mood.label))},
                    {"Score", withoutDecimals(state.mood.score)}};
  if (state.lastRoast) contents.roast = state.lastRoast->text;
  if (state.latestSnapshot) contents.estimates = estimatesOf(*state.latestSnapshot, timeOfDay);
  return contents;
}

}  // namespace quibbly
