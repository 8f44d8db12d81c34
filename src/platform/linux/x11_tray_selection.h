#pragma once

#include <functional>
#include <string>

#include "platform/lifetime.h"
#include "platform/main_queue.h"
#include "platform/x11/x11_handles.h"

namespace quibbly::linux_services {

/// Watches the owner of a display's tray selection (freedesktop.org's System Tray Protocol), over a connection that is its
/// own. Main thread.
class X11TraySelection {
 public:
  /// Calls back on later turns of the main queue, each time that an owner shows itself or goes. Without a display there is
  /// none.
  X11TraySelection(MainQueue& queue, x11::XDisplay display, std::function<void()> changed);
  X11TraySelection(const X11TraySelection&) = delete;
  X11TraySelection& operator=(const X11TraySelection&) = delete;
  ~X11TraySelection();

  [[nodiscard]] bool hasOwner() const { return owner_ != XCB_WINDOW_NONE; }

 private:
  void findOwner();
  void read();
  bool takeEvents();
  void close();

  MainQueue& queue_;
  std::function<void()> changed_;
  x11::XDisplay display_;
  xcb_atom_t selection_ = XCB_ATOM_NONE;
  xcb_atom_t manager_ = XCB_ATOM_NONE;
  xcb_window_t owner_ = XCB_WINDOW_NONE;
  Lifetime lifetime_;
};

}  // namespace quibbly::linux_services
