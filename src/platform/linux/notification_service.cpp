#include "platform/linux/notification_service.h"

#include <string_view>

#include "platform/linux/service_presence.h"

namespace quibbly::linux_services::notification_service {

std::expected<void, std::string> success(sd_bus_message* answer) {
  switch (presence(answer)) {
    case Presence::absent:
      return std::unexpected("There is no notification service.");
    case Presence::silent:
      return std::unexpected("The notification service does not answer.");
    case Presence::there:
      break;
  }
  const sd_bus_error* const error = sd_bus_message_get_error(answer);
  if (error == nullptr) return {};
  const std::string_view text = error->message != nullptr ? error->message : "";
  return std::unexpected(std::string(text.empty() ? error->name : text));
}

}  // namespace quibbly::linux_services::notification_service
