#include "platform/linux/bus_handles.h"

#include <utility>

namespace quibbly::linux_services {
namespace {

Bus openBus(const std::string& address, int (*openUsual)(sd_bus**)) {
  sd_bus* opened = nullptr;
  if (address.empty()) {
    const bool isOpen = openUsual(&opened) >= 0;
    return Bus(isOpen ? opened : nullptr);
  }
  if (sd_bus_new(&opened) < 0) return nullptr;
  Bus bus(opened);
  const bool isOpen = sd_bus_set_address(opened, address.c_str()) >= 0 && sd_bus_set_bus_client(opened, 1) >= 0 &&
                      sd_bus_start(opened) >= 0;
  return isOpen ? std::move(bus) : nullptr;
}

}  // namespace

Bus openSystemBus(const std::string& address) { return openBus(address, &sd_bus_open_system); }
Bus openSessionBus(const std::string& address) { return openBus(address, &sd_bus_open_user); }

bool isReply(sd_bus_message* answer) {
  return answer != nullptr && sd_bus_message_is_method_error(answer, nullptr) == 0;
}

}  // namespace quibbly::linux_services
