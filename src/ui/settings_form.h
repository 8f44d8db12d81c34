#pragma once

#include <cstdint>
#include <string>

#include "app/app_model.h"
#include "app/observation.h"
#include "notify/notification_manager.h"
#include "platform/preference_store.h"
#include "records/intensity.h"
#include "records/random_roast_interval.h"
#include "shared/shared_storage.h"

namespace quibbly {

/// What the settings show and what their controls do, whatever draws them: values are read from the preferences and
/// written there, and the model hears of those that it acts upon. Main thread; must outlive the tasks that it launches.
class SettingsForm {
 public:
  SettingsForm(AppModel& model, PreferenceStore& defaults, NotificationManager& notifications,
               const SharedStorage& storage)
      : model_(model), defaults_(defaults), notifications_(notifications), storage_(storage) {}
  SettingsForm(const SettingsForm&) = delete;
  SettingsForm& operator=(const SettingsForm&) = delete;

 private:
  Observers observers_;  // before the fields, which tell it

 public:
  // NOLINTBEGIN(cppcoreguidelines-non-private-member-variables-in-classes): as in the model
  Observed<std::string> notificationStatusText{observers_, "Checking…"};
  /// Whether notifications of the desktop come up on the screen.
  Observed<bool> bannersAllowed{observers_, false};
  // NOLINTEND(cppcoreguidelines-non-private-member-variables-in-classes)

  /// Tells of the fields of this form; those of the model are told by the model.
  [[nodiscard]] Observers::Token observe(Observers::Handler handler) { return observers_.add(std::move(handler)); }

  /// To be called each time the form is shown: brings the model and the preferences in line.
  void appeared();

  /// `sarcastic` when what is stored is no tone.
  [[nodiscard]] Intensity intensity();
  void setIntensity(Intensity intensity);
  [[nodiscard]] bool allowHarshLanguage();
  void setAllowHarshLanguage(bool allow);
  [[nodiscard]] bool includeAppNames();
  void setIncludeAppNames(bool include);

  [[nodiscard]] bool hideFromDock();
  void setHideFromDock(bool hide) { model_.setHideFromDock(hide); }
  /// `off` when what is stored is none of the intervals.
  [[nodiscard]] RandomRoastInterval randomInterval();
  void setRandomInterval(RandomRoastInterval interval);
  [[nodiscard]] std::int64_t dailyLimit();
  void setDailyLimit(std::int64_t limit) { model_.setDailyRoastLimit(limit); }

  /// Notifications that may still be sent today; not below 0.
  [[nodiscard]] std::int64_t remainingToday() const;
  [[nodiscard]] bool containerAvailable() const { return storage_.containerAvailable(); }

  void openSystemNotificationSettings() { notifications_.openSystemNotificationSettings(); }
  /// Asks the notification service anew.
  void refreshPermissionStatus();
  /// A roast within the limits; half a second later the permission is looked at again.
  void sendTestNotification();

 private:
  [[nodiscard]] Task<> refreshNotificationStatus();
  [[nodiscard]] Task<> refreshSoon();
  [[nodiscard]] bool storedSwitch(const char* key, bool whenMissing);
  void store(const char* key, PreferenceValue value);

  AppModel& model_;
  PreferenceStore& defaults_;
  NotificationManager& notifications_;
  const SharedStorage& storage_;
};

}  // namespace quibbly
