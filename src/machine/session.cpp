#include "machine/session.h"

#include <filesystem>
#include <utility>

#include "machine/environment.h"
#include "platform/linux/any_tray_host.h"
#include "platform/linux/dbus_cross_process_center.h"
#include "platform/linux/dbus_notification_center.h"
#include "platform/linux/dbus_single_instance.h"
#include "platform/linux/dbus_widget_center.h"
#include "platform/linux/desktop_workspace.h"
#include "platform/linux/inotify_watch.h"
#include "platform/linux/lock_file.h"
#include "platform/linux/portal_appearance.h"
#include "platform/linux/session_bus.h"

namespace quibbly {

using namespace linux_services;

namespace {

/// Of the user, whatever the session: all sessions of a user share what quibbly stores.
std::filesystem::path lockPath() {
  const std::filesystem::path runtime = environment("XDG_RUNTIME_DIR");
  return runtime.is_absolute() ? runtime / "quibbly.lock" : preferenceDirectory() / "lock";
}

}  // namespace

struct Session::Services {
  Services(MainQueue& mainQueue, x11::XDisplay trayDisplay)
      : queue(mainQueue), trayHost(mainQueue, bus, std::move(trayDisplay)) {}

  MainQueue& queue;
  SessionBus bus{queue};
  DBusWidgetCenter widgets{bus};
  DBusCrossProcessCenter crossProcess{bus};
  InotifyWatch mailboxWatch{queue};
  DBusNotificationCenter notifications{queue, bus, environment("PATH")};
  LockFile lock{lockPath()};
  DBusSingleInstance instance{queue, bus, lock};
  DesktopWorkspace workspace{environment("XDG_CURRENT_DESKTOP"), environment("PATH")};
  AnyTrayHost trayHost;
  PortalAppearance appearance{bus};
};

Session::Session(MainQueue& queue, x11::XDisplay trayDisplay)
    : services_(std::make_unique<Services>(queue, std::move(trayDisplay))) {}
Session::~Session() = default;

WidgetCenter& Session::widgets() { return services_->widgets; }
CrossProcessCenter& Session::crossProcess() { return services_->crossProcess; }
DirectoryWatch& Session::mailboxWatch() { return services_->mailboxWatch; }
NotificationCenter& Session::notifications() { return services_->notifications; }
SingleInstance& Session::instance() { return services_->instance; }
Workspace& Session::workspace() { return services_->workspace; }
TrayHost& Session::trayHost() { return services_->trayHost; }
DesktopAppearance& Session::appearance() { return services_->appearance; }

}  // namespace quibbly
