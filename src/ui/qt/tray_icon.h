#pragma once

#include <functional>
#include <optional>

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include "ui/menu_bar_label.h"

namespace quibbly {

/// The icon in the tray. To be made when there is a host: Qt settles once, at the first, how it speaks to trays.
class TrayIcon : public QObject {
 public:
  struct Commands {
    /// A click.
    std::function<void()> toggle;
    /// From the menu, which some hosts open on any click.
    std::function<void()> open;
    std::function<void()> quit;
  };

  explicit TrayIcon(const Commands& commands);

  void show(const MenuBarLabel& label);
  /// Where the icon is; the pointer's place where the host does not tell.
  [[nodiscard]] QRect place() const;

 private:
  std::optional<MenuBarLabel::Symbol> symbol_;
  QMenu menu_;
  QSystemTrayIcon icon_;
};

}  // namespace quibbly
