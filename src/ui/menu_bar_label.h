#pragma once

#include <optional>
#include <string>

#include "records/mac_mood.h"
#include "records/roast_thermal_state.h"
#include "ui/panel_contents.h"

namespace quibbly {

/// The icon that stands for the program.
struct MenuBarLabel {
  enum class Symbol { flame, flameFill, exclamationmarkTriangleFill };

  MacMood mood;
  /// Absent before the first sample.
  std::optional<RoastThermalState> thermal;

  [[nodiscard]] static MenuBarLabel of(const PanelState& state);
  [[nodiscard]] Symbol symbol() const;
  [[nodiscard]] std::string accessibilityLabel() const;
};

}  // namespace quibbly
