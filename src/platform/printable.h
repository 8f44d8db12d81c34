#pragma once

#include <string>
#include <string_view>

namespace quibbly {

/// The UTF-8 text with every control character, line separator and direction mark replaced by a space: what a window or a
/// user calls itself must neither break a line nor steer the terminal.
[[nodiscard]] std::string printable(std::string_view text);

}  // namespace quibbly
