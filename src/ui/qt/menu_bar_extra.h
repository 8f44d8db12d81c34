#pragma once

#include <functional>
#include <memory>

#include <QObject>

#include "platform/main_queue.h"
#include "platform/tray_host.h"
#include "ui/menu_bar_label.h"
#include "ui/panel_contents.h"
#include "ui/qt/menu_bar_view.h"
#include "ui/qt/tray_icon.h"
#include "ui/qt/windowed_application.h"

namespace quibbly {

/// The icon in the tray and the panel that it opens. While there is no tray the panel is a window. Main thread; must
/// outlive the queue's work.
class MenuBarExtra : public QObject {
 public:
  struct Ports {
    MainQueue& queue;
    TrayHost& trayHost;
    WindowedApplication& application;
    /// What both show.
    std::function<PanelState()> state;
    /// Called each time the panel is shown, on the next turn of the queue.
    std::function<void()> panelShown;
  };

  MenuBarExtra(Ports ports, MenuBarView::Commands commands);

  /// Shows the icon as soon as there is a tray to show it in, and the panel when there is none for a moment.
  void start();
  void openPanel();
  [[nodiscard]] bool hasIcon() const { return isDocked_; }
  /// Shows what changed.
  void update();

 protected:
  bool eventFilter(QObject* panel, QEvent* event) override;

 private:
  void dock();
  void undock();
  void awaitTray();
  void togglePanel();
  void showPanel();
  void placePanel();
  void showWindow();
  MenuBarView& panel();
  void panelIsShown();
  void dropPanel();
  [[nodiscard]] bool isPanelOpen() const { return panel_ && panel_->isVisible() && !panel_->isMinimized(); }

  Ports ports_;
  MenuBarView::Commands commands_;
  std::unique_ptr<TrayIcon> icon_;
  bool isDocked_ = false;
  MainQueue::TimerId untilWindow_{};
  std::unique_ptr<MenuBarView> panel_;
  bool isOpening_ = false;  // nothing of it was painted yet
  QRect clicked_;
  ContinuousClock::time_point closed_;  // when the panel was closed last
};

}  // namespace quibbly
