#include "app/app_model_bridge.h"

#include "app/app_model.h"

namespace quibbly {

void AppModelBridge::processPendingRoastFromWidget() {
  if (const auto model = shared.lock()) launch(model->queue(), process(model));
}

Task<> AppModelBridge::process(std::shared_ptr<AppModel> model) {
  model->start();
  co_await model->processPendingRoastRequestIfAny();
  co_await model->processPendingNotifyIfAny();
}

}  // namespace quibbly
