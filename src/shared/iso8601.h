#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "records/date.h"

namespace quibbly {

/// The date as ISO 8601 text in UTC with whole seconds, such as "2025-03-01T18:04:09Z". Fractions are dropped.
[[nodiscard]] std::string iso8601Text(Date date);

/// The date that such a text names, in exactly that form; absent for any other text, also for a date that no calendar has.
[[nodiscard]] std::optional<Date> dateFromIso8601(std::string_view text);

}  // namespace quibbly
