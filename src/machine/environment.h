#pragma once

#include <filesystem>
#include <string>

namespace quibbly {

/// The value of an environment variable; empty when it is not set.
[[nodiscard]] std::string environment(const char* name);

/// Where the user's programs keep what was configured.
[[nodiscard]] std::filesystem::path configHome();

/// Where quibbly keeps its preferences.
[[nodiscard]] std::filesystem::path preferenceDirectory();

}  // namespace quibbly
