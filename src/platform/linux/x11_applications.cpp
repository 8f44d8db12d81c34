#include "platform/linux/x11_applications.h"

#include <cstdint>
#include <unistd.h>
#include <utility>

#include "platform/linux/window_applications.h"
#include "platform/linux/x11_windows.h"

namespace quibbly::linux_services {
X11Applications::X11Applications(std::string display, DesktopEntries& entries, std::chrono::milliseconds patience)
    : display_(std::move(display)), entries_(entries), patience_(patience) {}

std::optional<ApplicationsReading> X11Applications::running() {
  // A forwarded display shows the windows of the machine that somebody sits at, and we speak of the one that we run on.
  if (!isLocalDisplay(display_)) return std::nullopt;
  if (!reading_) reading_.emplace([display = display_] { return readWindows(display); });
  const auto windows = reading_->within(patience_);
  // An answer that is late is awaited by the next sample too: one connection hangs with a display that does, not many.
  if (windows || !reading_->pending()) reading_.reset();
  if (!windows || !*windows) return std::nullopt;
  return decideApplications(**windows, entries_.current(), static_cast<std::uint32_t>(::getpid()));
}

}  // namespace quibbly::linux_services
