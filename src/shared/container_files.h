#pragma once

#include <string_view>

/// Files of the shared container that more than one class reads or writes.
namespace quibbly::container_files {

inline constexpr std::string_view lastRoast = "lastRoast.json";
inline constexpr std::string_view widgetSnapshot = "widgetSnapshot.json";

}  // namespace quibbly::container_files
