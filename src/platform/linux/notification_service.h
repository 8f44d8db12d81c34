#pragma once

#include <expected>
#include <string>

#include "platform/linux/session_bus.h"

/// The desktop's notification service as the session bus knows it.
namespace quibbly::linux_services::notification_service {

constexpr const char* name = "org.freedesktop.Notifications";
constexpr const char* path = "/org/freedesktop/Notifications";
constexpr const char* interface = "org.freedesktop.Notifications";

/// Whether somebody is there: nobody, and nobody can be started; a service that does not answer in time; one that answers,
/// be it with an error.
enum class Presence { absent, silent, there };

/// What an answer of `SessionBus::call` says about the service that was asked.
[[nodiscard]] Presence presence(sd_bus_message* answer);

/// Whether the answer is one. If not it says why, in the service's own words where it has any.
[[nodiscard]] std::expected<void, std::string> success(sd_bus_message* answer);

}  // namespace quibbly::linux_services::notification_service
