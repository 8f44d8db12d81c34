#include "ui/qt/menu_bar_extra.h"

#include <chrono>
#include <utility>

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

#include "ui/qt/panel_placement.h"
#include "ui/qt/window_hints.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

/// A tray may come up together with us, at login, or be restarted.
constexpr auto untilThereIsNoTray = 2s;
/// The click on the icon that closes a panel takes the keyboard from it first, and would open it again.
constexpr auto sameClick = 300ms;

}  // namespace

MenuBarExtra::MenuBarExtra(Ports ports, MenuBarView::Commands commands)
    : ports_(std::move(ports)), commands_(std::move(commands)) {}

void MenuBarExtra::start() {
  ports_.trayHost.observe([this](bool isThere) {
    if (isThere) {
      dock();
    } else {
      undock();
    }
  });
  awaitTray();
}

void MenuBarExtra::awaitTray() {
  ports_.queue.cancel(untilWindow_);
  untilWindow_ = ports_.queue.runAt(ports_.queue.now() + untilThereIsNoTray, [this] { showWindow(); });
}

/// If there is a window, it becomes a panel, which is opened from the icon.
void MenuBarExtra::dock() {
  if (std::exchange(isDocked_, true)) return;
  ports_.queue.cancel(untilWindow_);
  // Into a tray that comes again it goes by itself.
  if (!icon_) {
    icon_ = std::make_unique<TrayIcon>(TrayIcon::Commands{
        .toggle = [this] { togglePanel(); }, .open = [this] { openPanel(); }, .quit = commands_.quit});
  }
  dropPanel();
  update();
}

void MenuBarExtra::undock() {
  isDocked_ = false;
  dropPanel();
  awaitTray();
}

void MenuBarExtra::togglePanel() {
  // Whoever clicks on the icon sees a tray, also one that was not told of yet.
  dock();
  if (isPanelOpen()) {
    panel_->hide();
  } else if (ports_.queue.now() - closed_ > sameClick) {
    openPanel();
  }
}

void MenuBarExtra::openPanel() {
  if (hasIcon()) clicked_ = icon_->place();
  showPanel();
}

void MenuBarExtra::showPanel() {
  MenuBarView& opened = panel();
  opened.present(panelContents(ports_.state()));
  placePanel();
  isOpening_ = true;
  ports_.application.show(opened);
}

/// Nobody asked for it: whoever has the keyboard keeps it.
void MenuBarExtra::showWindow() {
  MenuBarView& window = panel();
  window.present(panelContents(ports_.state()));
  isOpening_ = true;
  window.setAttribute(Qt::WA_ShowWithoutActivating);
  window.show();
  window.setAttribute(Qt::WA_ShowWithoutActivating, false);
}

void MenuBarExtra::placePanel() {
  if (!hasIcon()) return;
  const QScreen* screen = QGuiApplication::screenAt(clicked_.center());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return;
  panel_->moveGround(panelPosition(clicked_, panel_->groundSize(), screen->availableGeometry()));
}

void MenuBarExtra::panelIsShown() {
  ports_.panelShown();
  // The display's compositor came or went since it was made; a window has a frame and does not care.
  if (!hasIcon() || !isPanelOpen() || panel_->surface() == window_hints::surface()) return;
  dropPanel();
  showPanel();
}

MenuBarView& MenuBarExtra::panel() {
  if (!panel_) {
    using Listing = WindowedApplication::Listing;
    const auto style = hasIcon() ? MenuBarView::Style::panel : MenuBarView::Style::window;
    panel_ = std::make_unique<MenuBarView>(style, window_hints::surface(), commands_);
    panel_->onResize([this] { placePanel(); });
    panel_->installEventFilter(this);
    ports_.application.add(*panel_, hasIcon() ? Listing::byPolicy : Listing::always);
  }
  return *panel_;
}

/// It may be in the middle of something.
void MenuBarExtra::dropPanel() {
  if (!panel_) return;
  panel_->removeEventFilter(this);
  panel_->hide();
  panel_->onResize({});
  panel_.release()->deleteLater();
}

void MenuBarExtra::update() {
  const PanelState state = ports_.state();
  if (icon_) icon_->show(MenuBarLabel::of(state));
  if (panel_ && panel_->isVisible()) panel_->present(panelContents(state));
}

bool MenuBarExtra::eventFilter(QObject* /*panel*/, QEvent* event) {
  if (event->type() == QEvent::Hide) closed_ = ports_.queue.now();
  // A window that was minimised.
  if (event->type() == QEvent::WindowStateChange) isOpening_ = isPanelOpen();
  // After it is painted: the user has waited enough.
  if (event->type() == QEvent::Paint && std::exchange(isOpening_, false)) {
    ports_.queue.post([this] { panelIsShown(); });
  }
  return false;
}

}  // namespace quibbly
