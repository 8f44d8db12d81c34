#pragma once

#include <systemd/sd-bus.h>

namespace quibbly::linux_services {

/// Whether somebody is there: nobody, and nobody can be started; a service that does not answer in time; one that answers,
/// be it with an error.
enum class Presence { absent, silent, there };

/// What an answer of `SessionBus::call` says about the service that was asked.
[[nodiscard]] Presence presence(sd_bus_message* answer);

}  // namespace quibbly::linux_services
