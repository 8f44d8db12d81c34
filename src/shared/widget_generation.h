#pragma once

#include <optional>
#include <string>

#include "records/date.h"

namespace quibbly {

/// Marks one publication, so that a widget can tell whether what it shows is the latest.
struct WidgetGeneration {
  /// An upper-case UUID text, fresh for each publication.
  std::string token;
  /// When it was published.
  Date updatedAt;
  /// The first 80 characters of the roast, as people count them.
  std::optional<std::string> roastPreview;

  bool operator==(const WidgetGeneration&) const = default;
};

}  // namespace quibbly
