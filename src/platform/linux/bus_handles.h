#pragma once

#include <memory>
#include <string>
#include <systemd/sd-bus.h>
#include <systemd/sd-event.h>

namespace quibbly::linux_services {

struct CloseBus {
  void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};
struct DropMessage {
  void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
struct DropSlot {
  void operator()(sd_bus_slot* slot) const { sd_bus_slot_unref(slot); }
};
struct DropEvents {
  void operator()(sd_event* events) const { sd_event_unref(events); }
};
/// Sends nothing more when it goes, so that closing never waits.
using Bus = std::unique_ptr<sd_bus, CloseBus>;
using BusMessage = std::unique_ptr<sd_bus_message, DropMessage>;
using BusSlot = std::unique_ptr<sd_bus_slot, DropSlot>;
using BusEvents = std::unique_ptr<sd_event, DropEvents>;

/// Connections that are being made: nothing has been waited for. Null when there is nobody to connect to. An empty address
/// means the bus of the machine, or of the user's session.
[[nodiscard]] Bus openSystemBus(const std::string& address);
[[nodiscard]] Bus openSessionBus(const std::string& address);

/// Whether it is an answer, and none that tells of an error.
[[nodiscard]] bool isReply(sd_bus_message* answer);

}  // namespace quibbly::linux_services
