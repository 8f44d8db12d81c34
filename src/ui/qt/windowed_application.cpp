#include "ui/qt/windowed_application.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QEvent>

#include "ui/qt/window_hints.h"

namespace quibbly {
namespace {

/// Whether it is a panel: gone once it is left.
bool isPanel(const QWidget& window) { return (window.windowFlags() & Qt::WindowType_Mask) == Qt::Tool; }

}  // namespace

WindowedApplication::WindowedApplication(MainQueue& queue) : queue_(queue) {
  connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
    if (state != Qt::ApplicationActive) return;
    queue_.post([self = QPointer(this)] {
      if (self && self->becameActive_) self->becameActive_();
    });
  });
}

void WindowedApplication::add(QWidget& window) {
  std::erase_if(windows_, [](const auto& known) { return known.isNull(); });
  windows_.emplace_back(&window);
  window.installEventFilter(this);
}

void WindowedApplication::show(QWidget& window) {
  if (window.isMinimized()) window.showNormal();
  window.show();
  window_hints::bringForward(window);
}

bool WindowedApplication::hasVisibleWindows() const {
  return std::ranges::any_of(windows_, [](const auto& window) { return window && window->isVisible(); });
}

void WindowedApplication::setActivationPolicy(ActivationPolicy policy) {
  if (std::exchange(policy_, policy) == policy) return;
  for (const auto& window : windows_) {
    if (window && window->isVisible()) window_hints::setInTaskbar(*window, policy == ActivationPolicy::regular);
  }
}

void WindowedApplication::activate(bool ignoringOtherApps) {
  if (!ignoringOtherApps || isActive()) return;
  QWidget* front = lastActive_;
  for (const auto& window : windows_) {
    if (!window || !window->isVisible()) continue;
    window->raise();
    if (front == nullptr || !front->isVisible()) front = window;
  }
  if (front != nullptr && front->isVisible()) show(*front);
}

bool WindowedApplication::isActive() const { return QApplication::activeWindow() != nullptr; }

void WindowedApplication::hide() {
  for (const auto& window : windows_) {
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
  // Managers forget what they were told of a window that is taken off the screen.
  if (event->type() == QEvent::Show && !event->spontaneous() && !isPanel(*widget)) {
    window_hints::setInTaskbar(*widget, policy_ == ActivationPolicy::regular);
  }
  return false;
}

}  // namespace quibbly
