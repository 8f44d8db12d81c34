#include "ui/panel_contents.h"

#include "app/app_model.h"
#include "records/units.h"

namespace quibbly {
namespace {

std::vector<PanelContents::Row> rowsOf(const SystemSnapshot& snapshot) {
  std::vector<PanelContents::Row> rows{{"CPU estimate", percent(snapshot.cpuUsage)},
                                       {"RAM estimate", percent(snapshot.memoryUtilizationEstimate)}};
  if (snapshot.batteryLevel) rows.push_back({"Battery", std::to_string(*snapshot.batteryLevel) + "%"});
  rows.push_back({"Uptime", uptimeString(snapshot.uptimeSeconds)});
  rows.push_back({"Apps", std::to_string(snapshot.runningAppCount)});
  rows.push_back({"Thermal", std::string(rawValue(snapshot.thermalState))});
  return rows;
}

std::vector<PanelContents::FooterLine> footerOf(const PanelState& state) {
  using Role = PanelContents::FooterLine::Role;
  std::vector<PanelContents::FooterLine> lines;
  if (state.pauseStatusText) lines.push_back({Role::pause, *state.pauseStatusText});
  if (state.randomRoastInterval != RandomRoastInterval::off) {
    lines.push_back({Role::schedule, "Random: " + std::string(displayText(state.randomRoastInterval))});
  }
  lines.push_back({Role::budget, "Notify budget: " + std::to_string(state.roastsSentToday) + "/" +
                                     std::to_string(state.dailyRoastLimit) + " today"});
  return lines;
}

}  // namespace

PanelState PanelState::of(const AppModel& model) {
  return {.mood = model.mood,
          .latestSnapshot = model.latestSnapshot,
          .lastRoast = model.lastRoast,
          .pauseStatusText = model.pauseStatusText(),
          .randomRoastInterval = model.randomRoastInterval,
          .roastsSentToday = model.roastsSentToday,
          .dailyRoastLimit = model.dailyRoastLimit,
          .statusMessage = model.statusMessage};
}

PanelContents panelContents(const PanelState& state) {
  PanelContents contents;
  contents.heading = "Mac Mood: " + std::string(displayText(state.mood.label));
  if (state.latestSnapshot) contents.rows = rowsOf(*state.latestSnapshot);
  if (state.lastRoast) contents.roast = state.lastRoast->text;
  contents.footer = footerOf(state);
  contents.status = state.statusMessage;
  return contents;
}

std::string percent(double fraction) { return "~" + std::to_string(wholePercent(fraction)) + "%"; }

std::string uptimeString(double seconds) {
  constexpr double secondsPerHour = 3600.0;
  const std::int64_t days = wholeDays(seconds);
  if (days >= 1) return std::to_string(days) + " days";
  return std::to_string(truncatedToInteger(seconds / secondsPerHour)) + " hours";
}

}  // namespace quibbly
