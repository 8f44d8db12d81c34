#pragma once

#include <expected>
#include <string>
#include <systemd/sd-bus.h>

/// The desktop's notification service as the session bus knows it.
namespace quibbly::linux_services::notification_service {

constexpr const char* name = "org.freedesktop.Notifications";
constexpr const char* path = "/org/freedesktop/Notifications";
constexpr const char* interface = "org.freedesktop.Notifications";

/// Whether the answer is one. If not it says why, in the service's own words where it has any.
[[nodiscard]] std::expected<void, std::string> success(sd_bus_message* answer);

}  // namespace quibbly::linux_services::notification_service
