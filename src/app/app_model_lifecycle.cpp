// How the model comes up, runs and stops: its loops, the start-up refresh and what they publish.

#include <utility>

#include "app/app_model.h"
#include "app/app_model_bridge.h"
#include "app/preference_keys.h"
#include "monitor/mood_calculator.h"
#include "platform/completion.h"
#include "platform/sleep.h"
#include "shared/container_files.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

constexpr auto betweenSamples = 15s;

}  // namespace

std::shared_ptr<AppModel> AppModel::create(const Services& services) {
  auto model = std::make_shared<AppModel>(services);
  if (auto roast = services.storage.read<LastRoast>(container_files::lastRoast)) model->lastRoast = std::move(*roast);
  if (const auto figures = services.storage.read<WidgetSnapshot>(container_files::widgetSnapshot)) {
    model->mood = figures->mood;
  }
  model->randomRoastInterval =
      randomRoastIntervalFromStored(model->storedInteger(preference_keys::randomRoastIntervalMinutes));
  model->reloadPolicyFromDefaults();
  services.notifications.configureIfNeeded();
  AppModelBridge::shared = model;
  return model;
}

AppModel::~AppModel() { endObservingWidgetRoastRequests(); }

void AppModel::start() {
  AppModelBridge::shared = weak_from_this();
  reloadPolicyFromDefaults();
  beginObservingWidgetRoastRequests();
  launchHolding(processPendingRoastRequestIfAny());
  if (isMonitoring) {
    applyDockVisibility();
    return;
  }
  isMonitoring = true;
  applyDockVisibility();
  if (!services_.storage.containerAvailable()) {
    statusMessage = "App Group unavailable — widget may not update.";
  } else if (!*statusMessage) {
    statusMessage = hideFromDock ? "Running in menu bar (Dock hidden)." : "Running — Dock + menu bar flame.";
  }
  pollTask_ = launch(services_.queue, samplingLoop(weak_from_this()));
  beginLookingIntoMailboxes();
  restartRandomRoastLoop();
  launchHolding(startUpRefresh());
}

void AppModel::stop() {
  isMonitoring = false;
  end(pollTask_);
  endLookingIntoMailboxes();
  end(randomRoastTask_);
  endObservingWidgetRoastRequests();
}

void AppModel::end(std::optional<TaskHandle>& loop) {
  if (loop) loop->cancel();
  loop.reset();
}

Task<> AppModel::samplingLoop(std::weak_ptr<AppModel> weakModel) {
  while (true) {
    {
      const auto model = weakModel.lock();
      const bool cancelled = co_await isCancelled();
      if (!model || cancelled) co_return;
      // Should the watch have missed something.
      model->launchRequestLoop();
      co_await model->tick();
    }
    co_await sleepFor(betweenSamples);
  }
}

Task<> AppModel::startUpRefresh() {
  (void)co_await services_.notifications.requestAuthorizationIfNeeded();
  co_await processPendingRoastRequestIfAny();
  co_await tick();
  if (!services_.store.widgetPayload()) {
    co_await performRoast(false, false);
    co_return;
  }
  const std::optional<SystemSnapshot>& snapshot = latestSnapshot;
  if (const auto roast = services_.store.lastRoast(); roast && snapshot) {
    services_.store.publish(*roast, WidgetSnapshot::from(*snapshot, mood));
  }
  const auto published = services_.store.lastRoast();
  std::optional<std::string> preview;
  if (published) preview = published->text;
  co_await services_.widgets.afterRoastPublished(std::move(preview));
}

Task<> AppModel::tick() {
  const SystemSnapshot snapshot = co_await captureSnapshot();
  latestSnapshot = snapshot;
  mood = MoodCalculator::score(snapshot);
  publishShared(snapshot, mood);
}

Task<SystemSnapshot> AppModel::captureSnapshot() {
  Completion<SystemSnapshot>::Start capture = [this](auto answer) {
    services_.monitor.captureSnapshot(std::move(answer));
  };
  co_return co_await Completion<SystemSnapshot>(std::move(capture));
}

/// Publishes the figures with the roast that widgets show; without one, the figures alone.
void AppModel::publishShared(const SystemSnapshot& snapshot, const MacMood& scored) {
  const WidgetSnapshot figures = WidgetSnapshot::from(snapshot, scored);
  if (const auto roast = services_.store.lastRoast()) {
    services_.store.publish(*roast, figures);
  } else {
    services_.store.publishSnapshot(figures, services_.defaults);
  }
}

Task<> AppModel::holding(std::shared_ptr<AppModel> /*model*/, Task<> task) { co_await std::move(task); }

/// Launches a task of this model, which lives on until it has ended.
void AppModel::launchHolding(Task<> task) { launch(services_.queue, holding(shared_from_this(), std::move(task))); }

}  // namespace quibbly
