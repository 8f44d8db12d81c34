#pragma once

#include <optional>
#include <string>

#include "records/date.h"

namespace quibbly {

/// The date as seconds since 1970-01-01 00:00 UTC.
[[nodiscard]] double epochSeconds(Date date);

/// The date of so many seconds; absent when they are no number or beyond what a date can hold.
[[nodiscard]] std::optional<Date> dateFromEpochSeconds(double seconds);

/// The shortest decimal text that reads back to the same double.
[[nodiscard]] std::string shortestText(double number);

}  // namespace quibbly
