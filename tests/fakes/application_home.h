#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

#include "app/kept_preferences.h"
#include "app/quibbly_app.h"
#include "fakes/fake_cross_process_center.h"
#include "fakes/fake_desktop.h"
#include "fakes/fake_notification_center.h"
#include "fakes/fake_snapshot_source.h"
#include "fakes/fake_widget_center.h"
#include "fakes/group.h"
#include "fakes/manual_queue.h"
#include "fakes/memory_preference_store.h"
#include "fakes/time_zone.h"
#include "platform/linux/icu_user_calendar.h"
#include "platform/linux/inotify_watch.h"

namespace quibbly::fakes {

/// The time of day that goes with a moved clock, and that can be set apart from it.
struct QueueClock final : WallClock {
  const MainQueue* queue = nullptr;
  std::chrono::system_clock::time_point atZero{std::chrono::sys_days{std::chrono::year{2026} / 11 / 17} +
                                               std::chrono::hours(10)};

  [[nodiscard]] std::chrono::system_clock::time_point now() const override {
    return atZero + std::chrono::duration_cast<std::chrono::system_clock::duration>(queue->now().time_since_epoch());
  }
};

/// Everything that an application needs, on a moved clock, with the container on real files. The application itself is
/// made by `launch`, and may be made anew.
struct ApplicationHome {
  explicit ApplicationHome(const std::optional<std::filesystem::path>& containerURL) : group(containerURL) {
    group.clock.queue = &queue;
  }
  ApplicationHome(const ApplicationHome&) = delete;
  ApplicationHome& operator=(const ApplicationHome&) = delete;
  ~ApplicationHome() {
    queue.tasks().drop();
    app.reset();
  }

  AppModel& launchApp() {
    app.reset();
    app = std::make_unique<QuibblyApp>(services);
    return *app->appModel;
  }

  ManualQueue queue;
  Group<QueueClock, MemoryPreferenceStore> group;
  TimeZone zone{"Europe/London"};
  linux_services::IcuUserCalendar calendar{"en_GB"};
  FakeWidgetCenter widgetCenter;
  FakeCrossProcessCenter crossProcess;
  FakeDesktop desktop;
  FakeNotificationCenter center{queue};
  FakeBannerScreen screen{queue};
  FakeSnapshotSource machine{queue};
  MemoryPreferenceStore preferences;
  KeptPreferences kept{preferences};
  RecentRoasts recentRoasts{group.storage};
  PlaceholderRoastEngine engine{group.clock, group.random};
  WidgetReload widgets{widgetCenter, group.preferences};
  RoastRequestQueue requests{group.storage, group.files, crossProcess};
  PendingNotifyQueue pending{group.storage, group.files, crossProcess, group.clock};
  linux_services::InotifyWatch mailboxWatch{queue};
  DesktopBanner banner{queue, screen};
  NotificationManager notifications{queue,  center,       desktop,        desktop,
                                    banner, recentRoasts, group.userText, group.random};
  AppModel::Services services{.queue = queue,
                              .clock = group.clock,
                              .calendar = calendar,
                              .monitor = machine,
                              .engine = engine,
                              .defaults = kept,
                              .storage = group.storage,
                              .recentRoasts = recentRoasts,
                              .store = group.store,
                              .widgets = widgets,
                              .requests = requests,
                              .pendingNotifications = pending,
                              .mailboxWatch = mailboxWatch,
                              .notifications = notifications,
                              .application = desktop,
                              .pasteboard = desktop};
  std::unique_ptr<QuibblyApp> app;
};

}  // namespace quibbly::fakes
