#pragma once

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
  std::optional<std::string> refusal;
  std::vector<std::string> categories;
  /// What is on the user's screen, oldest first.
  std::vector<NotificationRequest> delivered;
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
    queue_.post([this, answer = std::move(answer)] { answer(userGrants); });
  }
  void add(NotificationRequest request, std::function<void(Added)> answer) override {
    const auto delay = request.delay.value_or(std::chrono::milliseconds(0));
    queue_.runAt(queue_.now() + delay, [this, request = std::move(request), answer = std::move(answer)]() mutable {
      if (refusal) return answer(std::unexpected(*refusal));
      shownAs = delegate_ ? delegate_->willPresent(request) : PresentationOptions::none;
      delivered.push_back(std::move(request));
      answer({});
    });
  }
  void removeDelivered(const std::string& identifier) override {
    removed.push_back(identifier);
    std::erase_if(delivered, [&](const NotificationRequest& request) { return request.identifier == identifier; });
  }

  PresentationOptions shownAs = PresentationOptions::none;

 private:
  MainQueue& queue_;
  NotificationCenterDelegate* delegate_ = nullptr;
};

}  // namespace quibbly::fakes
