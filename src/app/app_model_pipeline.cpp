// How a roast is made and announced, and who may ask for one.

#include <utility>

#include "app/app_model.h"
#include "app/app_url.h"

namespace quibbly {

/// A request while one is under way is dropped. The guard is held until the widgets were reloaded for the last time, which
/// takes seconds; the notification comes after that.
Task<> AppModel::performRoast(bool notify, bool countTowardDailyLimit) {
  if (isPerformingRoast_) co_return;
  isPerformingRoast_ = true;
  co_await tick();
  const LastRoast roast = makeRoast(latestSnapshot->value_or(SystemSnapshot()));
  // Counted whatever becomes of the notification.
  if (countTowardDailyLimit) incrementDailyRoastCount();
  std::optional<std::string> preview = roast.text;
  co_await services_.widgets.afterRoastPublished(std::move(preview));
  if (notify) {
    co_await announce(roast);
  } else {
    statusMessage = "Fresh roast ready.";
  }
  services_.widgets.timelines();
  isPerformingRoast_ = false;
}

/// A line for the sample and the mood; shown, remembered and published.
LastRoast AppModel::makeRoast(const SystemSnapshot& snapshot) {
  const RecentRoastHistory history = services_.recentRoasts.history();
  LastRoast roast = services_.engine.roast(snapshot, mood, history);
  lastRoast = roast;
  services_.recentRoasts.remember(history.recording(roast.text, roast.templateId));
  services_.store.publish(roast, WidgetSnapshot::from(snapshot, mood));
  return roast;
}

Task<> AppModel::announce(LastRoast roast) {
  using Kind = NotificationPostError::Kind;
  const NotificationManager::Posted posted =
      co_await services_.notifications.postRoast(roastTitle, roast.text, roast.category);
  if (posted) {
    statusMessage = notifiedStatus();
  } else if (posted.error().kind() == Kind::denied) {
    statusMessage = "Desktop toast shown. System notifications denied.";
  } else if (posted.error().kind() == Kind::bannersDisabled) {
    statusMessage =
        "Desktop toast shown. System Temporary banners may be suppressed — Permanent (Alerts) works more reliably.";
  } else if (posted.error().kind() == Kind::duplicate) {
    statusMessage = "Roast updated (skipped duplicate system notification).";
  } else {
    statusMessage = posted.error().description();
  }
}

void AppModel::roastMeNow(bool notify, bool respectLimits) { launchHolding(roastWithinLimits(notify, respectLimits)); }

Task<> AppModel::roastWithinLimits(bool notify, bool respectLimits) {
  if (notify || respectLimits) reloadPolicyFromDefaults();
  if (respectLimits) {
    if (auto reason = refusal("Daily roast limit is 0 — enable a limit above 0 for notifications.")) {
      statusMessage = std::move(reason);
      co_return;
    }
  }
  co_await performRoast(respectLimits, respectLimits);
}

Task<bool> AppModel::roastIfAllowed() {
  reloadPolicyFromDefaults();
  if (auto reason = refusal("Daily roast limit is 0.")) {
    statusMessage = std::move(reason);
    co_return false;
  }
  co_await performRoast(true, true);
  co_return true;
}

void AppModel::handleOpenURL(std::string_view url) {
  if (!AppURL::isRoastAction(url)) return;
  start();
  launchHolding(roastForURL());
}

Task<> AppModel::roastForURL() {
  reloadPolicyFromDefaults();
  if (isPaused()) {
    statusMessage = pausedStatus();
    co_await performRoast(false, false);
    co_return;
  }
  const bool allowed = mayNotify();
  co_await performRoast(allowed, allowed);
  if (!allowed) statusMessage = "Roast updated (daily notify limit reached or limit is 0).";
}

void AppModel::copyLastRoast() {
  const std::optional<LastRoast>& roast = lastRoast;
  if (!roast) return;
  services_.pasteboard.clear();
  services_.pasteboard.setText(roast->text);
  statusMessage = "Copied.";
}

std::string AppModel::countedStatus(std::string_view before, std::string_view after) const {
  return std::string(before) + std::to_string(roastsSentToday) + "/" + std::to_string(dailyRoastLimit) +
         std::string(after);
}

std::string AppModel::notifiedStatus() const { return countedStatus("Desktop toast + notification (", " today)."); }

}  // namespace quibbly
