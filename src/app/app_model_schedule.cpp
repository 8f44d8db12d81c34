// The roasts that come by themselves.

#include "app/app_model.h"
#include "platform/sleep.h"

namespace quibbly {

void AppModel::restartRandomRoastLoop() {
  end(randomRoastTask_);
  if (randomRoastInterval == RandomRoastInterval::off) return;
  const std::chrono::minutes period(rawValue<RandomRoastInterval>(randomRoastInterval));
  randomRoastTask_ = launch(services_.queue, randomRoastLoop(weak_from_this(), period));
}

Task<> AppModel::randomRoastLoop(std::weak_ptr<AppModel> weakModel, std::chrono::minutes period) {
  while (true) {
    co_await sleepFor(period);
    const auto model = weakModel.lock();
    const bool cancelled = co_await isCancelled();
    if (!model || cancelled) co_return;
    co_await model->randomRoastTick();
  }
}

Task<> AppModel::randomRoastTick() { (void)co_await roastIfAllowed(); }

}  // namespace quibbly
