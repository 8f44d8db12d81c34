#pragma once

#include "platform/linux/bus_handles.h"
#include "platform/notification_center.h"

namespace quibbly::linux_services {

/// How the server is to take a notification.
struct NotificationStyle {
  /// The server reads the body as markup, so that what would be a tag in it must be escaped.
  bool bodyIsMarkup = false;
  bool makesSound = false;
};

/// Fills in a call of Notify; false when that cannot be done, because something is not UTF-8.
[[nodiscard]] bool fillIn(sd_bus_message* call, const NotificationRequest& request, const NotificationStyle& style);

}  // namespace quibbly::linux_services
