#pragma once

#include <optional>
#include <string>

#include "records/date.h"
#include "records/mac_mood.h"

namespace quibbly {

/// The roast that is currently shown.
struct LastRoast {
  /// The line as shown.
  std::string text;
  /// The family's category: "thermal", "battery", "ram", "disk", "uptime", "apps", "lifestyle" or "general".
  std::string category;
  /// The rule that produced it, such as "thermal_high".
  std::optional<std::string> ruleId;
  /// The template that was filled in, such as "thermal_3"; "general_ok_fallback" for the engine's fallback line.
  std::optional<std::string> templateId;
  /// The mood it was made for.
  MacMood mood;
  /// When it was made.
  Date createdAt;

  bool operator==(const LastRoast&) const = default;
};

}  // namespace quibbly
