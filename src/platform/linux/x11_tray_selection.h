#pragma once

#include <functional>
#include <string>

#include "platform/linux/x11_handles.h"
#include "platform/main_queue.h"

namespace quibbly::linux_services {

/// Watches for an owner of a display's tray selection (freedesktop.org's System Tray Protocol), over a connection of its
/// own. Main thread.
class X11TraySelection {
 public:
  /// Calls back on later turns of the main queue, each time that an owner shows itself. A display that cannot be reached
  /// has none.
  X11TraySelection(MainQueue& queue, const std::string& display, std::function<void()> appeared);
  X11TraySelection(const X11TraySelection&) = delete;
  X11TraySelection& operator=(const X11TraySelection&) = delete;
  ~X11TraySelection();

  [[nodiscard]] bool hasOwner() const;

 private:
  void read();
  void close();

  MainQueue& queue_;
  std::function<void()> appeared_;
  int screen_ = 0;
  XConnection connection_;
  xcb_atom_t selection_ = XCB_ATOM_NONE;
  xcb_atom_t manager_ = XCB_ATOM_NONE;
};

}  // namespace quibbly::linux_services
