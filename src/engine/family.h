#pragma once

#include <algorithm>
#include <span>
#include <string_view>

#include "engine/placeholders.h"
#include "records/system_snapshot.h"

namespace quibbly {

[[nodiscard]] constexpr bool always(const SystemSnapshot&) { return true; }

/// A set of lines that share a condition. A line is literal but for placeholders (`engine/placeholders.h`); its template
/// id is `idPrefix` and its place in `lines`, from 1.
struct Family {
  std::string_view category;
  std::string_view ruleId;
  std::string_view idPrefix;
  /// Higher wins.
  int priority = 0;
  std::span<const std::string_view> lines;
  /// Whether the lines fit the sample; asked only where the family exists.
  bool (*matches)(const SystemSnapshot&) = always;
  /// Whether the family has candidates at all, fitting or not.
  bool (*exists)(const SystemSnapshot&) = always;
};

[[nodiscard]] consteval bool placeholdersAreKnown(std::span<const std::string_view> lines) {
  return std::ranges::all_of(lines, [](std::string_view line) { return hasOnlyKnownPlaceholders(line); });
}

/// The lines are set with curly quotes; a straight one is a slip of the keyboard.
[[nodiscard]] consteval bool isTypographic(std::span<const std::string_view> lines) {
  return std::ranges::all_of(lines, [](std::string_view line) { return line.find_first_of("'\"`") == line.npos; });
}

/// No two families can make the same template id: the prefixes differ, and none ends in a digit.
[[nodiscard]] consteval bool templateIdsAreUnique(std::span<const Family> families) {
  for (std::size_t i = 0; i < families.size(); ++i) {
    const char last = families[i].idPrefix.back();
    if (last >= '0' && last <= '9') return false;
    for (std::size_t j = 0; j < i; ++j) {
      if (families[i].idPrefix == families[j].idPrefix) return false;
    }
  }
  return true;
}

}  // namespace quibbly
