#include "platform/linux/home_directory.h"

#include <array>
#include <cstdlib>
#include <optional>
#include <pwd.h>
#include <unistd.h>

namespace quibbly::linux_services {
namespace {

std::optional<std::filesystem::path> absolutePath(const char* path) {
  if (path == nullptr || path[0] != '/') return std::nullopt;
  return path;
}

std::optional<std::filesystem::path> passwordDatabaseHome() {
  std::array<char, 16384> strings{};
  struct passwd entry{};
  struct passwd* found = nullptr;
  if (::getpwuid_r(::getuid(), &entry, strings.data(), strings.size(), &found) != 0 || found == nullptr) {
    return std::nullopt;
  }
  return absolutePath(entry.pw_dir);
}

}  // namespace

std::filesystem::path homeDirectory() {
  if (auto home = absolutePath(std::getenv("HOME"))) return *home;
  return passwordDatabaseHome().value_or("/");
}

}  // namespace quibbly::linux_services
