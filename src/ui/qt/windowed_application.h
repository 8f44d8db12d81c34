#pragma once

#include <functional>
#include <vector>

#include <QObject>
#include <QPointer>
#include <QWidget>

#include "platform/application.h"
#include "platform/main_queue.h"

namespace quibbly {

/// A program with windows. Which of them count it is told; a toast is none of them.
class WindowedApplication final : public QObject, public Application {
 public:
  explicit WindowedApplication(MainQueue& queue);

  /// The window follows the policy from now on, and comes forward and hides with the others.
  void add(QWidget& window);
  /// Shows the window, if it is not, in front of everything and with the keyboard.
  void show(QWidget& window);
  [[nodiscard]] bool hasVisibleWindows() const;
  /// Called on later turns of the queue, when a window got the keyboard and none had it before.
  void onBecomeActive(std::function<void()> becameActive) { becameActive_ = std::move(becameActive); }

  void setActivationPolicy(ActivationPolicy policy) override;
  [[nodiscard]] ActivationPolicy activationPolicy() const override { return policy_; }
  /// Does nothing unless it ignores others: an X display knows no coming forward that leaves the keyboard with whom it is.
  void activate(bool ignoringOtherApps) override;
  [[nodiscard]] bool isActive() const override;
  /// A panel closes for good, as it does whenever it loses the keyboard.
  void hide() override;
  void unhide() override;
  void terminate() override;

 protected:
  bool eventFilter(QObject* window, QEvent* event) override;

 private:
  MainQueue& queue_;
  ActivationPolicy policy_ = ActivationPolicy::regular;
  std::function<void()> becameActive_;
  std::vector<QPointer<QWidget>> windows_;
  std::vector<QPointer<QWidget>> hidden_;  // by `hide`
  QPointer<QWidget> lastActive_;
};

}  // namespace quibbly
