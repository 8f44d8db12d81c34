#pragma once

#include <memory>

#include "app/app_delegate.h"
#include "app/app_model.h"

namespace quibbly {

/// The application: the one model, and what listens to the desktop for it. Main thread.
struct QuibblyApp {
  explicit QuibblyApp(const AppModel::Services& services)
      : appDelegate(services.queue, services.defaults, services.application, services.notifications),
        appModel(AppModel::create(services)) {}

  AppDelegate appDelegate;
  std::shared_ptr<AppModel> appModel;
};

}  // namespace quibbly
