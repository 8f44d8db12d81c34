#pragma once

#include <string>

namespace quibbly {

/// The text with every control character replaced by a space: what a window or a user calls itself must neither break a
/// line nor steer the terminal.
[[nodiscard]] std::string printable(std::string text);

}  // namespace quibbly
