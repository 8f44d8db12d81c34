#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/desktop_index.h"
#include "platform/running_applications.h"

namespace quibbly::linux_services {

/// `other` is a type that we know and that is neither: a dock, a desktop, a menu, a splash screen.
enum class WindowType { unknown, normal, dialog, other };

struct DesktopWindow {
  std::optional<std::uint32_t> processId;
  /// The two halves of WM_CLASS; empty when the window has none.
  std::string instance;
  std::string className;
  /// In the window's order of preference.
  std::vector<WindowType> types;
  bool skipTaskbar = false;
};

/// One look at a display.
struct WindowsReading {
  /// The windows that the window manager manages.
  std::vector<DesktopWindow> managed;
  /// The window in front, which need not be one of them; absent when there is none.
  std::optional<DesktopWindow> active;
};

/// Sets both halves from the text of the property, two strings that each end in a NUL. Halves that are not UTF-8 stay
/// empty.
void setWindowClass(DesktopWindow& window, std::string_view property);

/// Which applications the windows belong to, and which of them is in front. Windows of this program, known by the process
/// or by their class, are left out.
[[nodiscard]] ApplicationsReading decideApplications(const WindowsReading& windows, const DesktopIndex& index,
                                                     std::uint32_t ownProcessId);

}  // namespace quibbly::linux_services
