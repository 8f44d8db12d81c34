#include "ui/qt/dashboard_window_controller.h"

#include <utility>

#include <QEvent>

#include "app/app_model.h"
#include "app/app_model_bridge.h"

namespace quibbly {
namespace {

constexpr DashboardView::Frame frame{.title = "quibbly Dashboard", .atFirst = {560, 440}, .smallest = {520, 400}};

}  // namespace

DashboardWindowController::DashboardWindowController(WindowedApplication& application, ProgramVersion version)
    : application_(application), version_(std::move(version)) {}

void DashboardWindowController::show(AppModel& model) {
  application_.setActivationPolicy(ActivationPolicy::regular);
  isOpen_ = application_.holdRegular();
  application_.activate(true);
  if (!window_) {
    window_ = std::make_unique<DashboardView>(frame, [&model] { model.roastMeNow(false, false); }, version_);
    window_->installEventFilter(this);
    application_.add(*window_);
  }
  const bool appears = !window_->isVisible();
  application_.show(*window_);
  if (appears) model.start();
}

bool DashboardWindowController::eventFilter(QObject* /*window*/, QEvent* event) {
  if (event->type() == QEvent::Close) {
    isOpen_.reset();
    if (const auto model = AppModelBridge::shared.lock()) model->applyDockVisibility();
  }
  return false;
}

}  // namespace quibbly
