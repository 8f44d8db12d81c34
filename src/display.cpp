#include "display.h"

#include <filesystem>
#include <ranges>
#include <string>
#include <system_error>
#include <utility>

#include <QLibraryInfo>

#include "machine/environment.h"

namespace quibbly {
namespace {

/// The compositor's socket, and what Qt needs to speak to it, which is a package of its own.
bool hasWayland() {
  const std::string display = environment("WAYLAND_DISPLAY");
  if (display.empty()) return false;
  const std::filesystem::path socket = std::filesystem::path(environment("XDG_RUNTIME_DIR")) / display;
  const std::filesystem::path plugins = QLibraryInfo::path(QLibraryInfo::PluginsPath).toStdString();
  std::error_code ignored;
  // It is one plugin or several, as Qt's version has it.
  const auto speaksWayland = [](const std::filesystem::directory_entry& plugin) {
    return plugin.path().filename().string().starts_with("libqwayland");
  };
  if (!std::filesystem::is_socket(socket, ignored)) return false;
  std::filesystem::directory_iterator platforms(plugins / "platforms", ignored);
  for (; platforms != std::filesystem::directory_iterator(); platforms.increment(ignored)) {
    if (speaksWayland(*platforms)) return true;
  }
  return false;
}

/// Without a platform when it is not there.
Display displayOf(std::string platform) {
  if (platform.starts_with("xcb")) {
    x11::XDisplay x = x11::connectTo(environment("DISPLAY"));
    if (!x) return {};
    return {.platform = std::move(platform), .x = std::move(x)};
  }
  // Qt's other platforms need nothing of the session's.
  const bool isThere = !platform.starts_with("wayland") || hasWayland();
  return isThere ? Display{.platform = std::move(platform)} : Display{};
}

}  // namespace

/// X comes first also on a Wayland session that offers it: Wayland lets no program place its own windows.
Display findDisplay() {
  const std::string wishes = environment("QT_QPA_PLATFORM") + ";xcb;wayland";
  for (const auto wish : std::views::split(wishes, ';')) {
    std::string platform(wish.begin(), wish.end());
    if (platform.empty()) continue;
    if (Display found = displayOf(std::move(platform)); !found.platform.empty()) return found;
  }
  return {};
}

}  // namespace quibbly
