#include "app/app_delegate.h"

#include <chrono>
#include <cstdint>
#include <utility>

#include "app/app_model.h"
#include "app/app_model_bridge.h"
#include "app/preference_keys.h"
#include "platform/launched_tasks.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

constexpr auto secondStep = 500ms;
constexpr auto shownInDock = 2s;

}  // namespace

void AppDelegate::applicationDidFinishLaunching() {
  const bool hide = defaults_.get<std::int64_t>(preference_keys::hideFromDock).value_or(0) != 0;
  application_.setActivationPolicy(hide ? ActivationPolicy::accessory : ActivationPolicy::regular);
  if (!hide) application_.activate(true);
  notifications_.configureIfNeeded();
  queue_.post([] {
    const auto model = AppModelBridge::shared.lock();
    if (!model) return;
    AppModelBridge::processPendingRoastFromWidget();
    model->start();
    model->applyDockVisibility();
  });
  queue_.runAt(queue_.now() + secondStep, [&queue = queue_] {
    AppModelBridge::processPendingRoastFromWidget();
    launch(queue, processPendingNotify());
  });
}

void AppDelegate::applicationDidBecomeActive() {
  AppModelBridge::processPendingRoastFromWidget();
  launch(queue_, processPendingNotify());
}

bool AppDelegate::applicationShouldHandleReopen(bool /*hasVisibleWindows*/) {
  application_.activate(true);
  AppModelBridge::processPendingRoastFromWidget();
  return true;
}

void AppDelegate::open(const std::vector<std::string>& urls) {
  for (const std::string& url : urls) launch(queue_, openOne(url));
}

Task<> AppDelegate::openOne(std::string url) {
  const auto model = AppModelBridge::shared.lock();
  if (!model) co_return;
  if (model->hideFromDock) {
    application_.setActivationPolicy(ActivationPolicy::regular);
    // What follows makes the Dock follow the preference, and so does coming forward.
    auto hold = application_.holdRegular();
    application_.activate(true);
    queue_.runAt(queue_.now() + shownInDock, [hold = std::move(hold)] {
      if (const auto then = AppModelBridge::shared.lock()) then->applyDockVisibility();
    });
  }
  model->handleOpenURL(url);
}

Task<> AppDelegate::processPendingNotify() {
  if (const auto model = AppModelBridge::shared.lock()) co_await model->processPendingNotifyIfAny();
}

}  // namespace quibbly
