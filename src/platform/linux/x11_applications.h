#pragma once

#include <optional>
#include <string>

#include "platform/linux/desktop_entries.h"
#include "platform/running_applications.h"

namespace quibbly::linux_services {

/// The applications that have windows on an X display. Absent without a display, or without a window manager.
class X11Applications final : public RunningApplications {
 public:
  /// `display` as in the variable DISPLAY, empty when there is none; `entries` is used on the thread of `read`.
  X11Applications(std::string display, DesktopEntries& entries);

  /// Waits for the display's answers.
  [[nodiscard]] std::optional<ApplicationsReading> read() override;

 private:
  std::string display_;
  DesktopEntries& entries_;
};

}  // namespace quibbly::linux_services
