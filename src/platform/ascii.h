#pragma once

#include <algorithm>
#include <string_view>

namespace quibbly {

/// The ASCII letter in lower case; every other byte as it is, whatever the locale.
[[nodiscard]] constexpr char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Compares without regard to the case of ASCII letters.
[[nodiscard]] constexpr bool equalIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, lowered, lowered);
}

}  // namespace quibbly
