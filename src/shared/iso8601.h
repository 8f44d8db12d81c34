#pragma once

#include <string>

#include "records/date.h"

namespace quibbly {

/// The date as ISO 8601 text in UTC with whole seconds, such as "2025-03-01T18:04:09Z". Fractions are dropped.
[[nodiscard]] std::string iso8601Text(Date date);

}  // namespace quibbly
