// What widgets ask for: the two mailboxes, and the notification that says that one was filled.

#include <chrono>
#include <iterator>
#include <string>
#include <utility>

#include "app/app_model.h"
#include "platform/sleep.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

constexpr auto betweenLooks = 400ms;

}  // namespace

void AppModel::beginLookingIntoMailboxes() {
  if (const auto& container = services_.storage.containerURL()) {
    const std::string names[] = {std::string(RoastRequestQueue::fileName), std::string(PendingNotifyQueue::fileName)};
    services_.mailboxWatch.begin(*container, {std::begin(names), std::end(names)}, [weakModel = weak_from_this()] {
      if (const auto model = weakModel.lock()) model->launchRequestLoop();
    });
  }
  launchRequestLoop();
}

void AppModel::endLookingIntoMailboxes() {
  services_.mailboxWatch.end();
  end(requestPollTask_);
}

void AppModel::launchRequestLoop() {
  if (!requestPollTask_) requestPollTask_ = launch(services_.queue, requestLoop(weak_from_this()));
}

Task<> AppModel::requestLoop(std::weak_ptr<AppModel> weakModel) {
  while (true) {
    {
      const auto model = weakModel.lock();
      const bool cancelled = co_await isCancelled();
      if (!model || cancelled) co_return;
      co_await model->processPendingRoastRequestIfAny();
      co_await model->processPendingNotifyIfAny();
      const bool cancelledMeanwhile = co_await isCancelled();
      if (cancelledMeanwhile) co_return;
      if (model->mailboxesRest()) {
        model->requestPollTask_.reset();
        co_return;
      }
    }
    co_await sleepFor(betweenLooks);
  }
}

/// The watch first: what comes after it was asked is told of.
bool AppModel::mailboxesRest() {
  return services_.mailboxWatch.canTell() && services_.requests.isEmpty() && services_.pendingNotifications.isEmpty();
}

void AppModel::beginObservingWidgetRoastRequests() {
  if (roastRequestObserver_) return;
  roastRequestObserver_ = services_.requests.observe([weakModel = weak_from_this()] {
    if (const auto model = weakModel.lock()) model->launchHolding(model->processPendingRoastRequestIfAny());
  });
}

void AppModel::endObservingWidgetRoastRequests() {
  if (roastRequestObserver_) services_.requests.stopObserving(*roastRequestObserver_);
  roastRequestObserver_.reset();
}

Task<> AppModel::processPendingRoastRequestIfAny() {
  // What the limits refuse is gone all the same, and not tried again.
  if (services_.requests.take()) (void)co_await performWidgetRoast();
}

Task<bool> AppModel::performWidgetRoast() { co_return co_await roastIfAllowed(); }

Task<> AppModel::processPendingNotifyIfAny() {
  const auto pending = services_.pendingNotifications.take();
  if (!pending) co_return;
  reloadPolicyFromDefaults();
  if (isPaused()) {
    statusMessage = pausedStatus();
    showPublishedRoast();
    co_return;
  }
  // The limit decides what is counted here, not what is announced: the user has asked for this one by hand.
  if (mayNotify()) incrementDailyRoastCount();
  showPublishedRoast();
  statusMessage = "Widget roast: " + pending->body;
  const NotificationManager::Posted posted =
      co_await services_.notifications.postRoast(pending->title, pending->body, pending->category);
  if (posted) {
    statusMessage = notifiedStatus();
  } else if (posted.error().kind() == NotificationPostError::Kind::duplicate) {
    statusMessage = "Widget roast updated (duplicate system notification skipped).";
  } else {
    statusMessage = posted.error().description();
  }
  std::optional<std::string> preview = pending->body;
  co_await services_.widgets.afterRoastPublished(std::move(preview));
}

/// The intent has published its roast already; this model only has to show it.
void AppModel::showPublishedRoast() {
  if (auto roast = services_.store.lastRoast()) lastRoast = std::move(roast);
}

}  // namespace quibbly
