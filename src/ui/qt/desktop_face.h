#pragma once

#include <functional>
#include <memory>

#include "app/app_model.h"
#include "ui/qt/dashboard_window_controller.h"
#include "ui/qt/menu_bar_extra.h"
#include "ui/qt/settings_view.h"

namespace quibbly {

/// quibbly on a desktop: the icon in the tray with its panel, a dashboard and the settings. Each window is made when it is
/// first asked for. Main thread; must outlive the queue's work.
class DesktopFace {
 public:
  struct Ports {
    MainQueue& queue;
    TrayHost& trayHost;
    WindowedApplication& application;
    SettingsForm& settings;
    std::function<void()> quit;
    ProgramVersion version;
  };

  DesktopFace(Ports ports, AppModel& model);

  void start() { menuBarExtra_.start(); }
  /// The user started the program again, and none of its windows can be seen.
  void reopen();
  /// To be called when anything changed; all changes of one turn of the queue are shown together on the next.
  void changed();

 private:
  [[nodiscard]] MenuBarView::Commands commands();
  void update();
  /// A second one beside that of the panel: the one that a program without open windows opens with.
  void openLaunchDashboard();
  void openSettings();

  Ports ports_;
  AppModel& model_;
  MenuBarExtra menuBarExtra_;
  DashboardWindowController dashboardWindow_;
  std::unique_ptr<DashboardView> launchDashboard_;
  std::unique_ptr<SettingsView> settings_;
  bool isPosted_ = false;
};

}  // namespace quibbly
