#include "ui/qt/menu_bar_extra.h"

#include <chrono>
#include <utility>

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

#include "ui/qt/panel_placement.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

/// A tray may come up together with us, at login.
constexpr auto untilThereIsNoTray = 2s;
/// The click on the icon that closes a panel takes the keyboard from it first, and would open it again.
constexpr auto sameClick = 300ms;

}  // namespace

MenuBarExtra::MenuBarExtra(Ports ports, MenuBarView::Commands commands)
    : ports_(std::move(ports)), commands_(std::move(commands)) {}

void MenuBarExtra::start() {
  ports_.trayHost.await([this] { dock(); });
  ports_.queue.runAt(ports_.queue.now() + untilThereIsNoTray, [this] {
    if (!hasIcon()) openPanel();
  });
}

void MenuBarExtra::dock() {
  icon_ = std::make_unique<TrayIcon>(
      TrayIcon::Commands{.toggle = [this] { togglePanel(); }, .open = [this] { openPanel(); }, .quit = commands_.quit});
  // If it was a window, it is one of the other kind from now on.
  panel_.reset();
  update();
}

void MenuBarExtra::togglePanel() {
  if (isPanelOpen()) {
    panel_->hide();
  } else if (ports_.queue.now() - closed_ > sameClick) {
    openPanel();
  }
}

void MenuBarExtra::openPanel() {
  if (hasIcon()) clicked_ = icon_->place();
  ports_.panelShown();
  MenuBarView& opened = panel();
  opened.update(panelContents(ports_.state()));
  placePanel();
  ports_.application.show(opened);
}

void MenuBarExtra::placePanel() {
  if (!hasIcon()) return;
  const QScreen* screen = QGuiApplication::screenAt(clicked_.center());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return;
  panel_->moveGround(panelPosition(clicked_, panel_->groundSize(), screen->availableGeometry()));
}

MenuBarView& MenuBarExtra::panel() {
  if (!panel_) {
    panel_ =
        std::make_unique<MenuBarView>(hasIcon() ? MenuBarView::Style::panel : MenuBarView::Style::window, commands_);
    panel_->onResize([this] { placePanel(); });
    panel_->installEventFilter(this);
    ports_.application.add(*panel_);
  }
  return *panel_;
}

void MenuBarExtra::update() {
  const PanelState state = ports_.state();
  if (icon_) {
    const auto& sample = state.latestSnapshot;
    icon_->show({.mood = state.mood, .thermal = sample ? std::optional(sample->thermalState) : std::nullopt});
  }
  if (panel_ && panel_->isVisible()) panel_->update(panelContents(state));
}

bool MenuBarExtra::eventFilter(QObject* /*panel*/, QEvent* event) {
  if (event->type() == QEvent::Hide) closed_ = ports_.queue.now();
  return false;
}

}  // namespace quibbly
