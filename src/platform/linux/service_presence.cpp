#include "platform/linux/service_presence.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quibbly::linux_services {
namespace {

/// How the bus, which answers in the place of a service that cannot, begins the names of its errors.
struct BusError {
  std::string_view start;
  Presence meaning;
};

constexpr auto busErrors = std::to_array<BusError>({
    {"org.freedesktop.DBus.Error.ServiceUnknown", Presence::absent},
    {"org.freedesktop.DBus.Error.NameHasNoOwner", Presence::absent},
    {"org.freedesktop.DBus.Error.Spawn.", Presence::absent},
    // Where services are started as units, a masked or missing one.
    {"org.freedesktop.systemd1.", Presence::absent},
    {"org.freedesktop.DBus.Error.NoReply", Presence::silent},
    {"org.freedesktop.DBus.Error.Timeout", Presence::silent},
    {"org.freedesktop.DBus.Error.TimedOut", Presence::silent},
});

}  // namespace

Presence presence(sd_bus_message* answer) {
  if (answer == nullptr) return Presence::absent;
  const sd_bus_error* const error = sd_bus_message_get_error(answer);
  if (error == nullptr) return Presence::there;
  const std::string_view called = error->name;
  const auto* const known = std::ranges::find_if(
      busErrors, [&](std::string_view start) { return called.starts_with(start); }, &BusError::start);
  return known == busErrors.end() ? Presence::there : known->meaning;
}

}  // namespace quibbly::linux_services
