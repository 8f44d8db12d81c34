#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "records/last_roast.h"
#include "records/mac_mood.h"
#include "records/random_roast_interval.h"
#include "records/system_snapshot.h"

namespace quibbly {

class AppModel;

/// What of the model the panel shows.
struct PanelState {
  MacMood mood;
  std::optional<SystemSnapshot> latestSnapshot;
  std::optional<LastRoast> lastRoast;
  /// Absent when there is no pause.
  std::optional<std::string> pauseStatusText;
  RandomRoastInterval randomRoastInterval = RandomRoastInterval::off;
  std::int64_t roastsSentToday = 0;
  std::int64_t dailyRoastLimit = 0;
  std::optional<std::string> statusMessage;

  [[nodiscard]] static PanelState of(const AppModel& model);
};

/// What the panel says, from top to bottom, whatever draws it.
struct PanelContents {
  struct Row {
    std::string label;
    std::string value;

    bool operator==(const Row&) const = default;
  };
  struct FooterLine {
    enum class Role { pause, schedule, budget };
    Role role;
    std::string text;

    bool operator==(const FooterLine&) const = default;
  };

  /// In place of the rows while there is no sample.
  static constexpr std::string_view collecting = "Collecting first snapshot…";

  std::string heading;
  /// Absent before the first sample.
  std::optional<std::vector<Row>> rows;
  std::optional<std::string> roast;
  std::vector<FooterLine> footer;
  std::optional<std::string> status;

  bool operator==(const PanelContents&) const = default;
};

[[nodiscard]] PanelContents panelContents(const PanelState& state);

/// A fraction as "~42%".
[[nodiscard]] std::string percent(double fraction);
/// A length of time in whole days, or below one day in whole hours.
[[nodiscard]] std::string uptimeString(double seconds);

}  // namespace quibbly
