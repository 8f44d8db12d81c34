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

/// The icon in the tray and the panel that it opens. On a desktop without a tray the panel is a window, until a tray comes.
/// Main thread; must outlive the queue's work.
class MenuBarExtra : public QObject {
 public:
  struct Ports {
    MainQueue& queue;
    TrayHost& trayHost;
    WindowedApplication& application;
    /// What both show.
    std::function<PanelState()> state;
    /// To be called each time the panel is shown.
    std::function<void()> panelShown;
  };

  MenuBarExtra(Ports ports, MenuBarView::Commands commands);

  /// Shows the icon as soon as there is a tray to show it in, and the panel when none comes within a moment.
  void start();
  void openPanel();
  [[nodiscard]] bool hasIcon() const { return icon_ != nullptr; }
  /// Shows what changed.
  void update();

 protected:
  bool eventFilter(QObject* panel, QEvent* event) override;

 private:
  void dock();
  void togglePanel();
  void placePanel();
  MenuBarView& panel();
  [[nodiscard]] bool isPanelOpen() const { return panel_ && panel_->isVisible() && !panel_->isMinimized(); }

  Ports ports_;
  MenuBarView::Commands commands_;
  std::unique_ptr<TrayIcon> icon_;
  std::unique_ptr<MenuBarView> panel_;
  QRect clicked_;
  ContinuousClock::time_point closed_;  // when the panel was closed last
};

}  // namespace quibbly
