#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "platform/lifetime.h"
#include "platform/linux/notification_message.h"
#include "platform/linux/session_bus.h"
#include "platform/notification_center.h"

namespace quibbly::linux_services {

/// Notifications by way of the server that owns org.freedesktop.Notifications on the session bus.
///
/// A desktop has no permissions to give: who finds a server may post, and who finds none, nor one that the bus can start,
/// is denied. When this object goes, what is under way is not answered any more.
class DBusNotificationCenter final : public NotificationCenter {
 public:
  /// The programs that are asked about some desktop's settings are looked for on the search path, as PATH has it.
  DBusNotificationCenter(MainQueue& queue, SessionBus& bus, std::string searchPath)
      : queue_(queue), bus_(bus), searchPath_(std::move(searchPath)) {}

  void setDelegate(NotificationCenterDelegate* delegate) override { delegate_ = delegate; }
  /// Categories stand for actions, and ours have none: there is nothing to tell the server.
  void setCategories(std::vector<std::string> /*identifiers*/) override {}

  void settings(std::function<void(NotificationSettings)> answer) override;
  void requestAuthorization(AuthorizationOptions options, std::function<void(Granted)> answer) override;
  void add(NotificationRequest request, std::function<void(Added)> answer) override;
  void removeDelivered(const std::string& identifier) override;

 private:
  using Answer = std::function<void(Added)>;

  /// A notification as its server knows it. Numbers mean nothing to another server, and one that is started anew has another
  /// unique name.
  struct Delivered {
    std::string server;
    std::uint32_t number = 0;
  };

  [[nodiscard]] BusMessage newCall(const char* member);
  void deliver(const NotificationRequest& request, const Answer& answer);
  void notify(const NotificationRequest& request, const NotificationStyle& style, const Answer& answer);
  [[nodiscard]] Added take(const std::string& identifier, sd_bus_message* reply);

  MainQueue& queue_;
  SessionBus& bus_;
  std::string searchPath_;
  NotificationCenterDelegate* delegate_ = nullptr;
  std::map<std::string, Delivered> delivered_;  // until they are withdrawn
  Lifetime lifetime_;
};

}  // namespace quibbly::linux_services
