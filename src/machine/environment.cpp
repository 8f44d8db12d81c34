#include "machine/environment.h"

#include <cstdlib>
#include <utility>

#include "platform/linux/home_directory.h"

namespace quibbly {

std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::filesystem::path configHome() {
  std::filesystem::path named = environment("XDG_CONFIG_HOME");
  return named.is_absolute() ? std::move(named) : linux_services::homeDirectory() / ".config";
}

std::filesystem::path preferenceDirectory() { return configHome() / "quibbly"; }

}  // namespace quibbly
