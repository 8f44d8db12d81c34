#include "display.h"

#include <filesystem>
#include <string>

#include <QLibraryInfo>

#include "machine/environment.h"
#include "platform/linux/x11_handles.h"

namespace quibbly {
namespace {

bool hasXDisplay() {
  const std::string display = environment("DISPLAY");
  int screen = 0;
  return !display.empty() && linux_services::connectTo(display, screen) != nullptr;
}

/// The compositor's socket, and what Qt needs to speak to it, which is a package of its own.
bool hasWayland() {
  const std::string display = environment("WAYLAND_DISPLAY");
  if (display.empty()) return false;
  const std::filesystem::path socket = std::filesystem::path(environment("XDG_RUNTIME_DIR")) / display;
  const std::filesystem::path plugins = QLibraryInfo::path(QLibraryInfo::PluginsPath).toStdString();
  std::error_code ignored;
  return std::filesystem::is_socket(socket, ignored) &&
         std::filesystem::exists(plugins / "platforms/libqwayland-generic.so", ignored);
}

}  // namespace

/// X comes first also on a Wayland session that offers it: Wayland lets no program place its own windows.
bool chooseDisplay() {
  if (!environment("QT_QPA_PLATFORM").empty()) return true;
  if (hasXDisplay()) return qputenv("QT_QPA_PLATFORM", "xcb");
  return hasWayland() && qputenv("QT_QPA_PLATFORM", "wayland");
}

}  // namespace quibbly
