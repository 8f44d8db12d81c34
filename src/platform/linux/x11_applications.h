#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "platform/attempt.h"
#include "platform/linux/desktop_entries.h"
#include "platform/linux/window_applications.h"
#include "platform/running_applications.h"

namespace quibbly::linux_services {

/// The applications that have windows on an X display. Absent without a display, or without a window manager.
class X11Applications final : public RunningApplications {
 public:
  /// `display` as in the variable DISPLAY, empty when there is none; `entries` is used on the thread of `running`.
  /// A display that has not answered within `patience` hangs; one that works takes a thousandth of it.
  X11Applications(std::string display, DesktopEntries& entries,
                  std::chrono::milliseconds patience = std::chrono::seconds(2));

  /// Absent also while the display hangs.
  [[nodiscard]] std::optional<ApplicationsReading> running() override;

 private:
  std::string display_;
  DesktopEntries& entries_;
  std::chrono::milliseconds patience_;
  /// The question to a display that has not answered yet.
  std::optional<Attempt<std::optional<WindowsReading>>> reading_;
};

}  // namespace quibbly::linux_services
