#pragma once

#include <optional>
#include <string>

#include "platform/linux/window_applications.h"

namespace quibbly::linux_services {

/// Whether a display name, as in the variable DISPLAY, is one that this machine shows itself.
[[nodiscard]] bool isLocalDisplay(const std::string& display);

/// The windows of an X display, at most 1024, over a connection that lasts for this one reading. Absent when there is no
/// connection, or no window manager that keeps the list of windows.
[[nodiscard]] std::optional<WindowsReading> readWindows(const std::string& display);

}  // namespace quibbly::linux_services
