#pragma once

#include "app/kept_preferences.h"
#include "app/quibbly_app.h"
#include "machine/machine.h"
#include "machine/session.h"
#include "notify/desktop_banner.h"
#include "notify/notification_manager.h"

namespace quibbly {

/// What the application is made of whatever its face: the model with all that it uses. A face hands in what is drawn.
struct ApplicationCore {
  struct Face {
    Application& application;
    Pasteboard& pasteboard;
    BannerScreen& toasts;
  };

  ApplicationCore(Machine& machine, Session& session, MainQueue& queue, const Face& face)
      : preferences(machine.preferences()),
        storage(machine.container(), machine.files(), machine.random()),
        recentRoasts(storage),
        store(storage, machine.groupPreferences(), machine.clock(), machine.random(), machine.userText()),
        engine(machine.clock(), machine.random()),
        widgets(session.widgets(), machine.groupPreferences()),
        requests(storage, machine.files(), session.crossProcess()),
        pendingNotifications(storage, machine.files(), session.crossProcess(), machine.clock()),
        banner(queue, face.toasts),
        notifications(queue, session.notifications(), face.application, session.workspace(), banner, recentRoasts,
                      machine.userText(), machine.random()),
        app({.queue = queue,
             .clock = machine.clock(),
             .calendar = machine.calendar(),
             .monitor = machine.monitor(),
             .engine = engine,
             .defaults = preferences,
             .storage = storage,
             .recentRoasts = recentRoasts,
             .store = store,
             .widgets = widgets,
             .requests = requests,
             .pendingNotifications = pendingNotifications,
             .mailboxWatch = session.mailboxWatch(),
             .notifications = notifications,
             .application = face.application,
             .pasteboard = face.pasteboard}) {}

  KeptPreferences preferences;
  SharedStorage storage;
  RecentRoasts recentRoasts;
  AppGroupStore store;
  PlaceholderRoastEngine engine;
  WidgetReload widgets;
  RoastRequestQueue requests;
  PendingNotifyQueue pendingNotifications;
  DesktopBanner banner;
  NotificationManager notifications;
  QuibblyApp app;
};

}  // namespace quibbly
