#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/panel_contents.h"

namespace quibbly {

/// What the dashboard says, from top to bottom. Its shares are cut off where the panel rounds them.
struct DashboardContents {
  using Row = PanelContents::Row;

  /// In place of the roast while there is none.
  static constexpr std::string_view noRoast = "No roast yet. Use Roast me again from the menu bar.";

  std::vector<Row> today;
  std::optional<std::string> roast;
  /// Absent before the first sample.
  std::optional<std::vector<Row>> estimates;

  bool operator==(const DashboardContents&) const = default;
};

/// Writes a time of day without seconds, as the user does.
using TimeOfDay = std::function<std::string(std::chrono::system_clock::time_point)>;

[[nodiscard]] DashboardContents dashboardContents(const PanelState& state, const TimeOfDay& timeOfDay);

}  // namespace quibbly
