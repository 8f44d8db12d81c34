#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/linux/statvfs_home_volume.h"

namespace quibbly {

/// The value of an environment variable; empty when it is not set.
inline std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

/// Where the user's programs keep what was configured.
inline std::filesystem::path configHome() {
  const std::filesystem::path named = environment("XDG_CONFIG_HOME");
  return named.is_absolute() ? named : linux_services::homeDirectory() / ".config";
}

/// Where quibbly keeps its preferences.
inline std::filesystem::path preferenceDirectory() { return configHome() / "quibbly"; }

}  // namespace quibbly
