#pragma once

#include <span>

#include "engine/family.h"

namespace quibbly {

/// Every family there is, in the order in which candidates are built.
[[nodiscard]] std::span<const Family> allFamilies();

}  // namespace quibbly
