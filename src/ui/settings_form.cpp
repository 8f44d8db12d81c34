#include "ui/settings_form.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "app/preference_keys.h"
#include "platform/launched_tasks.h"
#include "platform/sleep.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

constexpr auto untilTheTestIsOut = 500ms;

}  // namespace

void SettingsForm::appeared() {
  model_.reloadPolicyFromDefaults();
  // What is stored may be no interval; `off` is stored then.
  setRandomInterval(randomInterval());
  setDailyLimit(dailyLimit());
  setHideFromDock(hideFromDock());
  refreshPermissionStatus();
}

Intensity SettingsForm::intensity() {
  const std::string raw = defaults_.get<std::string>(preference_keys::intensity).value_or("");
  return fromRawValue<Intensity>(raw).value_or(Intensity::sarcastic);
}

void SettingsForm::setIntensity(Intensity intensity) {
  store(preference_keys::intensity, std::string(rawValue(intensity)));
}

bool SettingsForm::allowHarshLanguage() { return storedSwitch(preference_keys::allowHarshLanguage, false); }

void SettingsForm::setAllowHarshLanguage(bool allow) {
  store(preference_keys::allowHarshLanguage, std::int64_t{allow});
}

bool SettingsForm::includeAppNames() { return storedSwitch(preference_keys::includeAppNames, true); }

void SettingsForm::setIncludeAppNames(bool include) { store(preference_keys::includeAppNames, std::int64_t{include}); }

bool SettingsForm::hideFromDock() { return storedSwitch(preference_keys::hideFromDock, false); }

RandomRoastInterval SettingsForm::randomInterval() {
  return randomRoastIntervalFromStored(
      defaults_.get<std::int64_t>(preference_keys::randomRoastIntervalMinutes).value_or(0));
}

void SettingsForm::setRandomInterval(RandomRoastInterval interval) {
  model_.randomRoastInterval = interval;
  store(preference_keys::randomRoastIntervalMinutes, rawValue(interval));
  model_.restartRandomRoastLoop();
}

std::int64_t SettingsForm::dailyLimit() {
  return defaults_.get<std::int64_t>(preference_keys::dailyRoastLimit).value_or(defaultDailyRoastLimit);
}

std::int64_t SettingsForm::remainingToday() const {
  return std::max<std::int64_t>(0, model_.dailyRoastLimit - model_.roastsSentToday);
}

void SettingsForm::refreshPermissionStatus() { launch(model_.queue(), refreshNotificationStatus()); }

void SettingsForm::sendTestNotification() {
  model_.roastMeNow(true, true);
  launch(model_.queue(), refreshSoon());
}

Task<> SettingsForm::refreshNotificationStatus() {
  NotificationCapability capability = co_await notifications_.currentCapability();
  notificationStatusText = std::move(capability.summary);
  bannersAllowed = capability.allowsBanners;
}

Task<> SettingsForm::refreshSoon() {
  co_await sleepFor(untilTheTestIsOut);
  co_await refreshNotificationStatus();
}

bool SettingsForm::storedSwitch(const char* key, bool whenMissing) {
  return defaults_.get<std::int64_t>(key).value_or(whenMissing ? 1 : 0) != 0;
}

void SettingsForm::store(const char* key, PreferenceValue value) {
  [[maybe_unused]] const std::error_code forgotten = defaults_.set(key, std::move(value));
}

}  // namespace quibbly
