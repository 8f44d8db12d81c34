#pragma once

#include <memory>

#include "platform/cross_process_center.h"
#include "platform/desktop_appearance.h"
#include "platform/directory_watch.h"
#include "platform/main_queue.h"
#include "platform/notification_center.h"
#include "platform/single_instance.h"
#include "platform/tray_host.h"
#include "platform/widget_center.h"
#include "platform/workspace.h"
#include "platform/x11/x11_handles.h"

namespace quibbly {

/// The services of the user's session, which live on the main queue. Like `Machine`, it chooses implementations. Beyond the
/// display that it is handed, nothing is connected before it is used.
class Session {
 public:
  /// An icon of ours may be in the tray of this X display; without one, in none of X.
  explicit Session(MainQueue& queue, x11::XDisplay trayDisplay = {});
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  [[nodiscard]] WidgetCenter& widgets();
  [[nodiscard]] CrossProcessCenter& crossProcess();
  [[nodiscard]] DirectoryWatch& mailboxWatch();
  [[nodiscard]] NotificationCenter& notifications();
  [[nodiscard]] SingleInstance& instance();
  [[nodiscard]] Workspace& workspace();
  [[nodiscard]] TrayHost& trayHost();
  [[nodiscard]] DesktopAppearance& appearance();

 private:
  struct Services;
  std::unique_ptr<Services> services_;
};

}  // namespace quibbly
