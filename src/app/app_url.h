#pragma once

#include <string_view>

/// The URLs of this program's own scheme, "quibbly".
namespace quibbly::AppURL {

inline constexpr std::string_view scheme = "quibbly";
/// Asks for a roast.
inline constexpr const char* roast = "quibbly://roast";

/// Whether the URL asks for a roast: its host is "roast", or its path ends with it, whatever the case of the letters.
/// A text that is no URL asks for nothing.
[[nodiscard]] bool isRoastAction(std::string_view url);

/// Whether the text begins as the URLs of this program do.
[[nodiscard]] bool hasScheme(std::string_view url);

}  // namespace quibbly::AppURL
