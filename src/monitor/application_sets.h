#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace quibbly {

/// Bundle identifiers of the applications that are counted apart, matched whole and case-sensitively.
inline constexpr auto browserIdentifiers = std::to_array<std::string_view>({
    "com.apple.Safari",
    "com.google.Chrome",
    "com.google.Chrome.canary",
    "org.mozilla.firefox",
    "company.thebrowser.Browser",
    "com.brave.Browser",
    "com.microsoft.edgemac",
    "com.operasoftware.Opera",
});

inline constexpr auto electronIdentifiers = std::to_array<std::string_view>({
    "com.tinyspeck.slackmacgap",
    "com.microsoft.teams2",
    "com.microsoft.VSCode",
    "com.hnc.Discord",
    "com.figma.Desktop",
    "com.spotify.client",
    "com.notion.id",
    "com.tdesktop.Telegram",
});

[[nodiscard]] constexpr bool isBrowser(std::string_view bundleIdentifier) {
  return std::ranges::find(browserIdentifiers, bundleIdentifier) != browserIdentifiers.end();
}

[[nodiscard]] constexpr bool isElectron(std::string_view bundleIdentifier) {
  return std::ranges::find(electronIdentifiers, bundleIdentifier) != electronIdentifiers.end();
}

}  // namespace quibbly
