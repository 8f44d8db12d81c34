// What the user decided about notifications: the daily limit and its count, the pause, the Dock.

#include <algorithm>
#include <cstdio>
#include <limits>
#include <utility>

#include "app/app_model.h"
#include "app/preference_keys.h"
#include "shared/epoch_seconds.h"

namespace quibbly {

using namespace std::chrono_literals;

void AppModel::reloadPolicyFromDefaults() {
  pauseUntilTimestamp = services_.defaults.get<double>(preference_keys::pauseRoastsUntil).value_or(0.0);
  if (services_.defaults.contains(preference_keys::dailyRoastLimit)) {
    dailyRoastLimit = storedInteger(preference_keys::dailyRoastLimit);
  } else {
    dailyRoastLimit = defaultDailyRoastLimit;
    store(preference_keys::dailyRoastLimit, defaultDailyRoastLimit);
  }
  hideFromDock = storedInteger(preference_keys::hideFromDock) != 0;
  rollDailyCounterIfNeeded();
  roastsSentToday = storedInteger(preference_keys::roastDayCount);
}

void AppModel::setDailyRoastLimit(std::int64_t value) {
  const std::int64_t clamped = std::clamp<std::int64_t>(value, 0, highestDailyRoastLimit);
  dailyRoastLimit = clamped;
  store(preference_keys::dailyRoastLimit, clamped);
}

void AppModel::pauseRoasts(double seconds) { setPauseEnd(epochSeconds(services_.clock.now()) + seconds); }

void AppModel::pauseRoastsUntilTomorrow() {
  setPauseEnd(epochSeconds(services_.calendar.startOfDay(services_.clock.now() + 86400s)));
}

void AppModel::setPauseEnd(double until) {
  pauseUntilTimestamp = until;
  store(preference_keys::pauseRoastsUntil, until);
  statusMessage = pauseStatusText();
}

void AppModel::resumeRoasts() {
  pauseUntilTimestamp = 0.0;
  store(preference_keys::pauseRoastsUntil, 0.0);
  statusMessage = "Roasts resumed.";
}

std::optional<std::string> AppModel::pauseStatusText() const {
  const auto end = dateFromEpochSeconds(pauseUntilTimestamp);
  if (!isPaused() || !end) return std::nullopt;
  return "Paused until " + services_.calendar.dateAndTime(*end);
}

void AppModel::setHideFromDock(bool hide) {
  hideFromDock = hide;
  store(preference_keys::hideFromDock, std::int64_t{hide});
  applyDockVisibility();
  statusMessage = hide ? "Dock icon hidden — use the menu bar flame (or widget)." : "Dock icon visible.";
}

void AppModel::applyDockVisibility() {
  services_.application.setActivationPolicy(hideFromDock ? ActivationPolicy::accessory : ActivationPolicy::regular);
  if (!hideFromDock) services_.application.activate(false);
}

bool AppModel::isPaused() const { return epochSeconds(services_.clock.now()) < pauseUntilTimestamp; }

std::string AppModel::pausedStatus() const { return pauseStatusText().value_or("Roasts paused."); }

bool AppModel::mayNotify() const { return dailyRoastLimit >= 1 && roastsSentToday < dailyRoastLimit; }

std::optional<std::string> AppModel::refusal(std::string_view atLimitZero) const {
  if (isPaused()) return pausedStatus();
  if (dailyRoastLimit <= 0) return std::string(atLimitZero);
  if (!mayNotify()) return countedStatus("Daily roast limit reached (", ").");
  return std::nullopt;
}

/// The count begins anew on the first look at it on another day. In one step: a day and a count that do not go together
/// would let through too many, or too few.
void AppModel::rollDailyCounterIfNeeded() {
  const std::string today = dayStamp(services_.clock.now());
  if (services_.defaults.get<std::string>(preference_keys::roastDayStamp) == today) return;
  const PreferenceChange changes[] = {{.key = preference_keys::roastDayStamp, .value = today},
                                      {.key = preference_keys::roastDayCount, .value = std::int64_t{0}}};
  [[maybe_unused]] const std::error_code forgotten = services_.defaults.apply(changes);
  roastsSentToday = 0;
}

/// The stored count is the one that counts: another program may have changed it.
void AppModel::incrementDailyRoastCount() {
  rollDailyCounterIfNeeded();
  const std::int64_t before = storedInteger(preference_keys::roastDayCount);
  const std::int64_t count = before + (before < std::numeric_limits<std::int64_t>::max() ? 1 : 0);
  store(preference_keys::roastDayCount, count);
  roastsSentToday = count;
}

/// The day that the moment is in, as the user counts days: two moments are on the same day when their stamps are equal.
std::string AppModel::dayStamp(Date moment) const {
  const UserCalendar::Day day = services_.calendar.day(moment);
  char stamp[40];
  (void)std::snprintf(stamp, sizeof stamp, "%04d-%02d-%02d", day.year, day.month, day.day);
  return stamp;
}

std::int64_t AppModel::storedInteger(const char* key) { return services_.defaults.get<std::int64_t>(key).value_or(0); }

void AppModel::store(const char* key, PreferenceValue value) {
  [[maybe_unused]] const std::error_code forgotten = services_.defaults.set(key, std::move(value));
}

}  // namespace quibbly
