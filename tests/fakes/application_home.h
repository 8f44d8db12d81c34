#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "app/kept_preferences.h"
#include "app/quibbly_app.h"
#include "fakes/failing_centers.h"
#include "fakes/failing_clock.h"
#include "fakes/failing_file_system.h"
#include "fakes/failing_preference_store.h"
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
/// made by `launchApp`, and may be made anew. What it asks of a service goes through `failing`, so that any call may fail,
/// or any of all services in `commonFaults`; the group and the fakes themselves are what others see, and never fail.
struct ApplicationHome {
  /// Without a watch of the test's own, the kernel's.
  explicit ApplicationHome(const std::optional<std::filesystem::path>& containerURL,
                           std::unique_ptr<DirectoryWatch> watch = nullptr)
      : group(containerURL),
        mailboxWatch(watch ? std::move(watch) : std::make_unique<linux_services::InotifyWatch>(queue)) {
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
  Faults commonFaults;
  struct {
    FailingFileSystem files;
    FailingPreferenceStore groupPreferences;
    FailingPreferenceStore preferences;
    FailingClock clock;
    FailingNotificationCenter center;
    FailingWidgetCenter widgetCenter;
    FailingCrossProcessCenter crossProcess;
  } failing{.files = FailingFileSystem(group.files, &commonFaults),
            .groupPreferences = FailingPreferenceStore(group.preferences, &commonFaults),
            .preferences = FailingPreferenceStore(preferences, &commonFaults),
            .clock = FailingClock(group.clock, &commonFaults),
            .center = FailingNotificationCenter(queue, center, &commonFaults),
            .widgetCenter = FailingWidgetCenter(queue, widgetCenter, &commonFaults),
            .crossProcess = FailingCrossProcessCenter(crossProcess, &commonFaults)};
  SharedStorage storage{group.container, failing.files, group.random};
  AppGroupStore store{storage, failing.groupPreferences, failing.clock, group.random, group.userText};
  KeptPreferences kept{failing.preferences};
  RecentRoasts recentRoasts{storage};
  PlaceholderRoastEngine engine{failing.clock, group.random};
  WidgetReload widgets{failing.widgetCenter, failing.groupPreferences};
  RoastRequestQueue requests{storage, failing.files, failing.crossProcess};
  PendingNotifyQueue pending{storage, failing.files, failing.crossProcess, failing.clock};
  std::unique_ptr<DirectoryWatch> mailboxWatch;
  DesktopBanner banner{queue, screen};
  NotificationManager notifications{queue,  failing.center, desktop,        desktop,
                                    banner, recentRoasts,   group.userText, group.random};
  AppModel::Services services{.queue = queue,
                              .clock = failing.clock,
                              .calendar = calendar,
                              .monitor = machine,
                              .engine = engine,
                              .defaults = kept,
                              .storage = storage,
                              .recentRoasts = recentRoasts,
                              .store = store,
                              .widgets = widgets,
                              .requests = requests,
                              .pendingNotifications = pending,
                              .mailboxWatch = *mailboxWatch,
                              .notifications = notifications,
                              .application = desktop,
                              .pasteboard = desktop};
  std::unique_ptr<QuibblyApp> app;
};

}  // namespace quibbly::fakes
