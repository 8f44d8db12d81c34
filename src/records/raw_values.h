#pragma once

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>

namespace quibbly {

/// One case of an enumeration, the value that stands for it in storage, and the text that people read.
template <typename Case, typename Raw>
struct RawValue {
  Case value;
  Raw raw;
  std::string_view displayText;
};

/// The table of an enumeration that has raw values: an array of `RawValue` in the order of its cases. Specialised beside
/// each such enumeration; everything below reads it, and so does the JSON coder.
template <typename Case>
inline constexpr auto rawValues = nullptr;

template <typename Case>
concept HasRawValues = std::is_enum_v<Case> && !std::same_as<decltype(rawValues<Case>), const std::nullptr_t>;

/// A raw value's type: `std::string_view` or a number.
template <HasRawValues Case>
using RawType = decltype(rawValues<Case>.front().raw);

/// The case's place in the order of cases, from 0.
template <HasRawValues Case>
[[nodiscard]] constexpr std::size_t indexOf(Case value) {
  const auto& table = rawValues<Case>;
  return static_cast<std::size_t>(std::ranges::find(table, value, [](const auto& row) { return row.value; }) -
                                  table.begin());
}

template <HasRawValues Case>
[[nodiscard]] constexpr RawType<Case> rawValue(Case value) {
  return rawValues<Case>[indexOf(value)].raw;
}

/// The text shown to the user.
template <HasRawValues Case>
[[nodiscard]] constexpr std::string_view displayText(Case value) {
  return rawValues<Case>[indexOf(value)].displayText;
}

/// The case with exactly this raw value; absent when there is none.
template <HasRawValues Case>
[[nodiscard]] constexpr std::optional<Case> fromRawValue(RawType<Case> raw) {
  for (const auto& row : rawValues<Case>) {
    if (row.raw == raw) return row.value;
  }
  return std::nullopt;
}

/// Every case, in order.
template <HasRawValues Case>
[[nodiscard]] constexpr auto allCases() {
  std::array<Case, rawValues<Case>.size()> cases{};
  std::ranges::transform(rawValues<Case>, cases.begin(), [](const auto& row) { return row.value; });
  return cases;
}

}  // namespace quibbly
