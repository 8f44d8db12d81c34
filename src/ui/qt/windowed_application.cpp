#include "ui/qt/windowed_application.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QEvent>

#include "ui/qt/artwork.h"
#include "ui/qt/widgets/drawn_icon.h"
#include "ui/qt/window_hints.h"

namespace quibbly {
namespace {

/// Whether it is a panel: gone once it is left.
bool isPanel(const QWidget& window) { return (window.windowFlags() & Qt::WindowType_Mask) == Qt::Tool; }
/// A window that the user minimised is left where it is.
bool isSeen(const QWidget& window) { return window.isVisible() && !window.isMinimized(); }

}  // namespace

WindowedApplication::WindowedApplication(MainQueue& queue) : queue_(queue) {
  connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
    if (state != Qt::ApplicationActive) return;
    queue_.post([self = QPointer(this)] {
      if (self && self->becameActive_) self->becameActive_();
    });
  });
}

void WindowedApplication::add(QWidget& window, Listing listing) {
  std::erase_if(windows_, [](const Known& known) { return known.window.isNull(); });
  windows_.push_back({.window = &window, .listing = listing});
  if (!isPanel(window)) window.setWindowIcon(drawnIcon(artwork::paintLogo));
  window.installEventFilter(this);
}

void WindowedApplication::show(QWidget& window) {
  if (window.isMinimized()) window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  window.show();
  window_hints::bringForward(window);
}

bool WindowedApplication::hasVisibleWindows() const {
  return std::ranges::any_of(windows_, [](const Known& known) { return known.window && known.window->isVisible(); });
}

void WindowedApplication::setActivationPolicy(ActivationPolicy policy) {
  policy_ = policy;
  followPolicy();
}

ActivationPolicy WindowedApplication::activationPolicy() const {
  return holds_ > 0 ? ActivationPolicy::regular : policy_;
}

std::shared_ptr<void> WindowedApplication::holdRegular() {
  ++holds_;
  followPolicy();
  return {this, [self = QPointer(this)](void*) {
            if (!self) return;
            --self->holds_;
            self->followPolicy();
          }};
}

void WindowedApplication::followPolicy() {
  if (std::exchange(followed_, activationPolicy()) == followed_) return;
  for (const Known& known : windows_) {
    if (known.window && known.window->isVisible()) list(known);
  }
}

void WindowedApplication::list(const Known& known) const {
  if (isPanel(*known.window)) return;
  window_hints::setInTaskbar(*known.window, known.listing == Listing::always || followed_ == ActivationPolicy::regular);
}

void WindowedApplication::activate(bool ignoringOtherApps) {
  if (!ignoringOtherApps || isActive()) return;
  QWidget* front = lastActive_;
  for (const auto& [window, listing] : windows_) {
    if (!window || !isSeen(*window)) continue;
    window->raise();
    if (front == nullptr || !isSeen(*front)) front = window;
  }
  if (front != nullptr && isSeen(*front)) show(*front);
}

bool WindowedApplication::isActive() const { return QApplication::activeWindow() != nullptr; }

void WindowedApplication::hide() {
  for (const auto& [window, listing] : windows_) {
    if (!window || !window->isVisible()) continue;
    if (!isPanel(*window)) hidden_.push_back(window);
    window->hide();
  }
}

void WindowedApplication::unhide() {
  for (const auto& window : std::exchange(hidden_, {})) {
    if (!window) continue;
    // Shown anew, a window would count its frame twice.
    const QPoint place = window->pos();
    window->show();
    window->move(place);
  }
}

void WindowedApplication::terminate() {
  // Not `quit`, which windows may refuse.
  queue_.post([] { QCoreApplication::exit(); });
}

bool WindowedApplication::eventFilter(QObject* window, QEvent* event) {
  auto* const widget = qobject_cast<QWidget*>(window);
  if (event->type() == QEvent::WindowActivate) lastActive_ = widget;
  // Qt tells it to windows only, and fonts that are set go no way down from there.
  if (event->type() == QEvent::ApplicationFontChange) {
    for (QWidget* const inside : widget->findChildren<QWidget*>()) QCoreApplication::sendEvent(inside, event);
  }
  // Managers forget what they were told of a window that is taken off the screen.
  if (event->type() == QEvent::Show && !event->spontaneous()) {
    const auto known = std::ranges::find(windows_, widget, [](const Known& one) { return one.window.data(); });
    if (known != windows_.end()) list(*known);
    if (shown_) shown_();
  }
  return false;
}

}  // namespace quibbly
