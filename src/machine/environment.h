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

/// Where quibbly keeps its preferences.
inline std::filesystem::path preferenceDirectory() {
  const std::filesystem::path configHome = environment("XDG_CONFIG_HOME");
  return (configHome.is_absolute() ? configHome : linux_services::homeDirectory() / ".config") / "quibbly";
}

}  // namespace quibbly
