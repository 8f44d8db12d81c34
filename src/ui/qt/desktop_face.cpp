#include "ui/qt/desktop_face.h"

#include <utility>

#include "ui/dashboard_contents.h"
#include "ui/qt/widgets/text.h"

namespace quibbly {
namespace {

constexpr DashboardView::Frame launchDashboardFrame{
    .title = "Dashboard", .atFirst = {560, 420}, .smallest = {480, 360}};

}  // namespace

DesktopFace::DesktopFace(Ports ports, AppModel& model)
    : ports_(std::move(ports)),
      model_(model),
      menuBarExtra_({.queue = ports_.queue,
                     .trayHost = ports_.trayHost,
                     .application = ports_.application,
                     .state = [this] { return PanelState::of(model_); },
                     .panelShown = [this] { model_.start(); }},
                    commands()),
      dashboardWindow_(ports_.application, ports_.version) {
  ports_.application.onShow([this] { update(); });
}

MenuBarView::Commands DesktopFace::commands() {
  return {.roast = [this] { model_.roastMeNow(false, false); },
          .roastAndNotify = [this] { model_.roastMeNow(true, true); },
          .copyRoast = [this] { model_.copyLastRoast(); },
          .openDashboard = [this] { dashboardWindow_.show(model_); },
          .openSettings = [this] { openSettings(); },
          .quit = ports_.quit};
}

void DesktopFace::reopen() {
  if (menuBarExtra_.hasIcon()) {
    openLaunchDashboard();
  } else {
    menuBarExtra_.openPanel();
  }
}

void DesktopFace::openLaunchDashboard() {
  if (!launchDashboard_) {
    launchDashboard_ = std::make_unique<DashboardView>(
        launchDashboardFrame, [this] { model_.roastMeNow(false, false); }, ports_.version);
    ports_.application.add(*launchDashboard_);
  }
  model_.start();
  ports_.application.show(*launchDashboard_);
}

void DesktopFace::openSettings() {
  if (!settings_) {
    settings_ = std::make_unique<SettingsView>(model_, ports_.settings, ports_.version);
    ports_.application.add(*settings_);
  }
  if (!settings_->isVisible()) {
    model_.start();
    ports_.settings.appeared();
  }
  ports_.application.show(*settings_);
}

void DesktopFace::changed() {
  if (std::exchange(isPosted_, true)) return;
  ports_.queue.post([this] {
    isPosted_ = false;
    update();
  });
}

void DesktopFace::update() {
  menuBarExtra_.update();
  for (DashboardView* const view : {launchDashboard_.get(), dashboardWindow_.window()}) {
    if (view != nullptr && view->isVisible()) view->present(dashboardContents(PanelState::of(model_), shortTime));
  }
  if (settings_ && settings_->isVisible()) settings_->present();
}

}  // namespace quibbly
