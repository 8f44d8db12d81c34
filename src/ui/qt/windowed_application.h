#pragma once

#include <functional>
#include <memory>
#include <utility>
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

  enum class Listing {
    /// In the desktop's taskbar while the program is regular.
    byPolicy,
    /// In any case: it is the only way back to the program.
    always,
  };

  /// The window follows the policy from now on, and comes forward and hides with the others. A panel is in no taskbar.
  void add(QWidget& window, Listing listing = Listing::byPolicy);
  /// Shows the window, if it is not, in front of everything and with the keyboard.
  void show(QWidget& window);
  [[nodiscard]] bool hasVisibleWindows() const;
  /// Called on later turns of the queue, when a window got the keyboard and none had it before.
  void onBecomeActive(std::function<void()> becameActive) { becameActive_ = std::move(becameActive); }
  /// Called each time that one of the windows is about to be seen: it may have missed what changed.
  void onShow(std::function<void()> shown) { shown_ = std::move(shown); }

  void setActivationPolicy(ActivationPolicy policy) override;
  /// That which holds now.
  [[nodiscard]] ActivationPolicy activationPolicy() const;
  [[nodiscard]] std::shared_ptr<void> holdRegular() override;
  /// Does nothing unless it ignores others: there are window managers that give the keyboard to whoever asks, and nothing that
  /// the user did says that he is done where he is.
  void activate(bool ignoringOtherApps) override;
  [[nodiscard]] bool isActive() const override;
  /// A panel closes for good, as it does whenever it loses the keyboard.
  void hide() override;
  void unhide() override;
  void terminate() override;

 protected:
  bool eventFilter(QObject* window, QEvent* event) override;

 private:
  struct Known {
    QPointer<QWidget> window;
    Listing listing = Listing::byPolicy;
  };

  void followPolicy();
  void list(const Known& known) const;

  MainQueue& queue_;
  ActivationPolicy policy_ = ActivationPolicy::regular;
  ActivationPolicy followed_ = ActivationPolicy::regular;
  int holds_ = 0;
  std::function<void()> becameActive_;
  std::function<void()> shown_;
  std::vector<Known> windows_;
  std::vector<QPointer<QWidget>> hidden_;  // by `hide`
  QPointer<QWidget> lastActive_;
};

}  // namespace quibbly
