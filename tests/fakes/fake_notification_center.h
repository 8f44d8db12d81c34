#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/main_queue.h"
#include "platform/notification_center.h"

namespace quibbly::fakes {

/// A notification service that takes everything, until the test says otherwise.
class FakeNotificationCenter : public NotificationCenter {
 public:
  explicit FakeNotificationCenter(MainQueue& queue) : queue_(queue) {}

  NotificationSettings now{.authorizationStatus = AuthorizationStatus::authorized,
                           .alertSetting = AlertSetting::enabled};
  /// What the user answers when asked, which is then decided.
  Granted userGrants = true;
  int timesAsked = 0;
  /// Why nothing is taken.
  std::optional<std::string> refusal;
  std::vector<std::string> categories;
  /// What is on the user's screen, oldest first, and how the last one was to be shown.
  std::vector<NotificationRequest> delivered;
  PresentationOptions shownAs;
  std::vector<std::string> removed;

  void setDelegate(NotificationCenterDelegate* delegate) override { delegate_ = delegate; }
  void setCategories(std::vector<std::string> identifiers) override { categories = std::move(identifiers); }
  void settings(std::function<void(NotificationSettings)> answer) override {
    queue_.post([this, answer = std::move(answer)] { answer(now); });
  }
  void requestAuthorization(AuthorizationOptions options, std::function<void(Granted)> answer) override {
    ++timesAsked;
    if (userGrants && options.alert) {
      now.authorizationStatus = *userGrants ? AuthorizationStatus::authorized : AuthorizationStatus::denied;
    }
    queue_.post([answer = std::move(answer), granted = userGrants] { answer(granted); });
  }
  void add(NotificationRequest request, std::function<void(Added)> answer) override {
    if (!request.delay) {
      queue_.post([this, request = std::move(request), answer = std::move(answer)]() mutable {
        answer(deliver(std::move(request)));
      });
      return;
    }
    queue_.post([answer = std::move(answer), refused = refusal] {
      answer(refused ? Added(std::unexpected(*refused)) : Added());
    });
    if (refusal) return;
    queue_.runAt(queue_.now() + *request.delay,
                 [this, request = std::move(request)]() mutable { (void)deliver(std::move(request)); });
  }
  void removeDelivered(const std::string& identifier) override {
    removed.push_back(identifier);
    std::erase_if(delivered, [&](const NotificationRequest& request) { return request.identifier == identifier; });
  }

 private:
  Added deliver(NotificationRequest request) {
    shownAs = delegate_ ? delegate_->willPresent(request) : PresentationOptions{true, true, true};
    if (!shownAs.banner && !shownAs.list) return {};
    if (refusal) return std::unexpected(*refusal);
    delivered.push_back(std::move(request));
    return {};
  }

  MainQueue& queue_;
  NotificationCenterDelegate* delegate_ = nullptr;
};

}  // namespace quibbly::fakes
