#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "fakes/faults.h"
#include "platform/cross_process_center.h"
#include "platform/main_queue.h"
#include "platform/notification_center.h"
#include "platform/widget_center.h"

namespace quibbly::fakes {

/// When a service that hangs is given up on.
inline constexpr std::chrono::seconds givenUpAfter{2};

/// A notification service that hangs and does nothing in the calls that fail.
class FailingNotificationCenter final : public NotificationCenter, public Faults {
 public:
  FailingNotificationCenter(MainQueue& queue, NotificationCenter& working, const Faults* common)
      : Faults(common), queue_(queue), working_(working) {}

  void setDelegate(NotificationCenterDelegate* delegate) override { working_.setDelegate(delegate); }
  void setCategories(std::vector<std::string> identifiers) override { working_.setCategories(std::move(identifiers)); }
  void settings(std::function<void(NotificationSettings)> answer) override {
    fails() ? later([answer = std::move(answer)] { answer({}); }) : working_.settings(std::move(answer));
  }
  void requestAuthorization(AuthorizationOptions options, std::function<void(Granted)> answer) override {
    fails() ? later([answer = std::move(answer)] { answer(std::nullopt); })
            : working_.requestAuthorization(options, std::move(answer));
  }
  void add(NotificationRequest request, std::function<void(Added)> answer) override {
    fails() ? later([answer = std::move(answer)] { answer(std::unexpected("The server hangs.")); })
            : working_.add(std::move(request), std::move(answer));
  }
  void removeDelivered(const std::string& identifier) override {
    if (!fails()) working_.removeDelivered(identifier);
  }

 private:
  void later(MainQueue::Work work) { queue_.runAt(queue_.now() + givenUpAfter, std::move(work)); }

  MainQueue& queue_;
  NotificationCenter& working_;
};

/// The same of a service that draws widgets.
class FailingWidgetCenter final : public WidgetCenter, public Faults {
 public:
  FailingWidgetCenter(MainQueue& queue, WidgetCenter& working, const Faults* common)
      : Faults(common), queue_(queue), working_(working) {}

  void reloadTimelines(std::string_view kind) override {
    if (!fails()) working_.reloadTimelines(kind);
  }
  void reloadAllTimelines() override {
    if (!fails()) working_.reloadAllTimelines();
  }
  void currentConfigurations(std::function<void(Configurations)> answer) override {
    if (!fails()) return working_.currentConfigurations(std::move(answer));
    queue_.runAt(queue_.now() + givenUpAfter, [answer = std::move(answer)] { answer(std::nullopt); });
  }

 private:
  MainQueue& queue_;
  WidgetCenter& working_;
};

/// A centre that carries nothing and hears nothing by the calls that fail.
class FailingCrossProcessCenter final : public CrossProcessCenter, public Faults {
 public:
  FailingCrossProcessCenter(CrossProcessCenter& working, const Faults* common) : Faults(common), working_(working) {}

  void post(std::string_view name) override {
    if (!fails()) working_.post(name);
  }
  void addObserver(void* observer, Callback callback, std::string_view name) override {
    if (!fails()) working_.addObserver(observer, callback, name);
  }
  void removeObserver(void* observer, std::string_view name) override { working_.removeObserver(observer, name); }

 private:
  CrossProcessCenter& working_;
};

}  // namespace quibbly::fakes
