#include "ui/qt/tray_icon.h"

#include <QApplication>
#include <QCursor>

#include "ui/command_titles.h"
#include "ui/qt/symbol.h"
#include "ui/qt/widgets/text.h"

namespace quibbly {

TrayIcon::TrayIcon(const Commands& commands) {
  menu_.addAction("Open quibbly", this, commands.open);
  menu_.addSeparator();
  menu_.addAction(command_titles::quit, this, commands.quit);
  icon_.setContextMenu(&menu_);
  connect(&icon_, &QSystemTrayIcon::activated, this, [commands](QSystemTrayIcon::ActivationReason reason) {
    if (reason == QSystemTrayIcon::Trigger) commands.toggle();
  });
}

void TrayIcon::show(const MenuBarLabel& label) {
  const auto symbol = label.symbol();
  if (symbol_ != symbol) icon_.setIcon(trayIconOf(symbol));
  symbol_ = symbol;
  const QString name = qtText(label.accessibilityLabel());
  if (icon_.toolTip() != name) icon_.setToolTip(name);
  if (!icon_.isVisible()) icon_.show();
  // In a tray of X the icon is a window of ours, which has a name only when it is given one.
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->inherits("QSystemTrayIconSys")) window->setWindowTitle(name);
  }
}

QRect TrayIcon::place() const {
  const QRect place = icon_.geometry();
  return place.isEmpty() ? QRect(QCursor::pos(), QSize(1, 1)) : place;
}

}  // namespace quibbly
