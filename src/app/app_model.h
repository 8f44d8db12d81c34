#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/observation.h"
#include "engine/placeholder_roast_engine.h"
#include "monitor/snapshot_source.h"
#include "notify/notification_manager.h"
#include "platform/application.h"
#include "platform/directory_watch.h"
#include "platform/launched_tasks.h"
#include "platform/pasteboard.h"
#include "platform/preference_store.h"
#include "platform/user_calendar.h"
#include "platform/wall_clock.h"
#include "records/random_roast_interval.h"
#include "shared/app_group_store.h"
#include "shared/pending_notify_queue.h"
#include "shared/recent_roasts.h"
#include "shared/roast_request_queue.h"
#include "shared/widget_reload.h"

namespace quibbly {

/// Notifications a day when nobody said how many.
inline constexpr std::int64_t defaultDailyRoastLimit = 3;
inline constexpr int highestDailyRoastLimit = 256;
/// The pause that a face offers, in seconds.
inline constexpr double anHour = 3600;

/// What the program knows and does while nobody clicks: it samples the machine, scores the mood, makes roasts, publishes
/// them for widgets, answers what widgets ask, and keeps the daily limit and the pause. Views show its fields and call its
/// operations; `statusMessage` is where every outcome is told.
///
/// Main thread. Everything that `Services` names must outlive the model and the tasks it launches.
class AppModel : public std::enable_shared_from_this<AppModel> {
 public:
  struct Services {
    MainQueue& queue;
    const WallClock& clock;
    const UserCalendar& calendar;
    SnapshotSource& monitor;
    const PlaceholderRoastEngine& engine;
    /// The application's own preferences. What is set holds until the program ends, stored or not.
    PreferenceStore& defaults;
    const SharedStorage& storage;
    const RecentRoasts& recentRoasts;
    AppGroupStore& store;
    WidgetReload& widgets;
    RoastRequestQueue& requests;
    PendingNotifyQueue& pendingNotifications;
    /// Of the mailboxes' directory.
    DirectoryWatch& mailboxWatch;
    NotificationManager& notifications;
    Application& application;
    Pasteboard& pasteboard;
  };

  /// Reads what is stored: the last roast, the mood and the preferences. The model becomes `AppModelBridge::shared`.
  [[nodiscard]] static std::shared_ptr<AppModel> create(const Services& services);
  explicit AppModel(const Services& services) : services_(services) {}
  AppModel(const AppModel&) = delete;
  AppModel& operator=(const AppModel&) = delete;
  ~AppModel();

 private:
  Observers observers_;  // before the fields, which tell it

 public:
  // Writing one tells the observers; that is all that setters would add.
  // NOLINTBEGIN(cppcoreguidelines-non-private-member-variables-in-classes)
  Observed<std::optional<SystemSnapshot>> latestSnapshot{observers_};
  Observed<MacMood> mood{observers_, MacMood{.score = 10.0, .label = MacMood::Label::proud}};
  Observed<std::optional<LastRoast>> lastRoast{observers_};
  /// One line for the user.
  Observed<std::optional<std::string>> statusMessage{observers_};
  Observed<bool> isMonitoring{observers_, false};
  Observed<RandomRoastInterval> randomRoastInterval{observers_, RandomRoastInterval::off};
  /// The end of the pause in seconds since 1970-01-01 00:00 UTC. Not later than now, there is no pause.
  Observed<double> pauseUntilTimestamp{observers_, 0.0};
  /// Notifications a day of the user's calendar.
  Observed<std::int64_t> dailyRoastLimit{observers_, defaultDailyRoastLimit};
  Observed<std::int64_t> roastsSentToday{observers_, 0};
  Observed<bool> hideFromDock{observers_, false};
  // NOLINTEND(cppcoreguidelines-non-private-member-variables-in-classes)

  [[nodiscard]] Observers::Token observe(Observers::Handler handler) { return observers_.add(std::move(handler)); }
  [[nodiscard]] MainQueue& queue() const { return services_.queue; }

  /// Begins to sample and to look after the mailboxes. May be called at any time: what runs is not started again.
  void start();
  /// Ends the loops and the observation of widgets; what was found stays.
  void stop();
  /// Takes a sample, scores it and publishes both.
  [[nodiscard]] Task<> tick();

  /// Makes a roast; announced and counted only within the limits. Both flags are the same at every caller, and the second
  /// decides.
  void roastMeNow(bool notify, bool respectLimits);
  /// Makes a roast when the URL asks for one: announced within the limits, else silent.
  void handleOpenURL(std::string_view url);
  void copyLastRoast();

  /// Takes the limit, the count, the pause and the Dock rule from the preferences.
  void reloadPolicyFromDefaults();
  /// Clamped to 0…256.
  void setDailyRoastLimit(std::int64_t value);
  void pauseRoasts(double seconds);
  void pauseRoastsUntilTomorrow();
  void resumeRoasts();
  /// "Paused until" and when; absent when there is no pause, or its end is no date.
  [[nodiscard]] std::optional<std::string> pauseStatusText() const;
  void setHideFromDock(bool hide);
  /// Makes the desktop follow `hideFromDock`, and comes forward when that is off.
  void applyDockVisibility();

  /// Begins the period of `randomRoastInterval` anew.
  void restartRandomRoastLoop();

  /// Takes the request for a roast, if a widget left one, and makes it within the limits.
  [[nodiscard]] Task<> processPendingRoastRequestIfAny();
  /// Takes the notification, if the roast-me intent left one, and announces it.
  [[nodiscard]] Task<> processPendingNotifyIfAny();

 private:
  // app_model_lifecycle.cpp
  /// Has it end with its next step, if it runs.
  static void end(std::optional<TaskHandle>& loop);
  static Task<> samplingLoop(std::weak_ptr<AppModel> weakModel);
  [[nodiscard]] Task<> startUpRefresh();
  [[nodiscard]] Task<SystemSnapshot> captureSnapshot();
  void publishShared(const SystemSnapshot& snapshot, const MacMood& scored);
  static Task<> holding(std::shared_ptr<AppModel> model, Task<> task);
  void launchHolding(Task<> task);

  // app_model_pipeline.cpp
  [[nodiscard]] Task<> performRoast(bool notify, bool countTowardDailyLimit);
  [[nodiscard]] LastRoast makeRoast(const SystemSnapshot& snapshot);
  [[nodiscard]] Task<> announce(LastRoast roast);
  [[nodiscard]] Task<> roastWithinLimits(bool notify, bool respectLimits);
  /// With a notification, and counted. False when the pause or the limit keeps it from that, which is told.
  [[nodiscard]] Task<bool> roastIfAllowed();
  [[nodiscard]] Task<> roastForURL();
  [[nodiscard]] std::string countedStatus(std::string_view before, std::string_view after) const;
  [[nodiscard]] std::string notifiedStatus() const;

  // app_model_policy.cpp
  [[nodiscard]] bool isPaused() const;
  [[nodiscard]] std::string pausedStatus() const;
  [[nodiscard]] bool mayNotify() const;
  /// Why no notification may be sent; absent when one may.
  [[nodiscard]] std::optional<std::string> refusal(std::string_view atLimitZero) const;
  void setPauseEnd(double until);
  void rollDailyCounterIfNeeded();
  void incrementDailyRoastCount();
  [[nodiscard]] std::string dayStamp(Date moment) const;
  [[nodiscard]] std::int64_t storedInteger(const char* key);
  void store(const char* key, PreferenceValue value);

  // app_model_schedule.cpp
  static Task<> randomRoastLoop(std::weak_ptr<AppModel> weakModel, std::chrono::minutes period);
  [[nodiscard]] Task<> randomRoastTick();

  // app_model_widget_requests.cpp
  void beginLookingIntoMailboxes();
  void endLookingIntoMailboxes();
  static Task<> requestLoop(std::weak_ptr<AppModel> weakModel);
  void launchRequestLoop();
  /// Whether there is nothing to look for in the mailboxes until the watch tells.
  [[nodiscard]] bool mailboxesRest();
  void beginObservingWidgetRoastRequests();
  void endObservingWidgetRoastRequests();
  /// Whether a roast was made.
  [[nodiscard]] Task<bool> performWidgetRoast();
  void showPublishedRoast();

  Services services_;
  std::optional<TaskHandle> pollTask_;
  std::optional<TaskHandle> requestPollTask_;
  std::optional<TaskHandle> randomRoastTask_;
  std::optional<ObserverToken> roastRequestObserver_;
  bool isPerformingRoast_ = false;
};

}  // namespace quibbly
