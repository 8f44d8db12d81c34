#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace quibbly {

/// What a line may name in braces; `TemplateValues` holds a text for each.
enum class Placeholder { thermal, capitalThermal, battery, ram, diskGB, days, apps, browsers, mood, score };

/// The names as they stand between the braces, in the order of the enumeration.
inline constexpr auto placeholderNames = std::to_array<std::string_view>(
    {"thermal", "Thermal", "battery", "ram", "diskGB", "days", "apps", "browsers", "mood", "score"});

[[nodiscard]] constexpr std::optional<Placeholder> placeholderNamed(std::string_view name) {
  const auto* const found = std::ranges::find(placeholderNames, name);
  if (found == placeholderNames.end()) return std::nullopt;
  return static_cast<Placeholder>(found - placeholderNames.begin());
}

/// A line cut at its first placeholder.
struct LinePart {
  std::string_view literal;
  /// Absent at the end of the line.
  std::optional<Placeholder> placeholder;
  std::string_view rest;
};

/// Braces that hold no known name belong to the literal text.
[[nodiscard]] constexpr LinePart nextPart(std::string_view line) {
  for (std::size_t open = line.find('{'); open != line.npos; open = line.find('{', open + 1)) {
    const std::size_t close = line.find('}', open);
    if (close == line.npos) break;
    if (const auto placeholder = placeholderNamed(line.substr(open + 1, close - open - 1))) {
      return {line.substr(0, open), placeholder, line.substr(close + 1)};
    }
  }
  return {line, std::nullopt, {}};
}

/// Whether every brace of the line belongs to a placeholder.
[[nodiscard]] constexpr bool hasOnlyKnownPlaceholders(std::string_view line) {
  while (true) {
    const LinePart part = nextPart(line);
    if (part.literal.find_first_of("{}") != line.npos) return false;
    if (!part.placeholder) return true;
    line = part.rest;
  }
}

}  // namespace quibbly
