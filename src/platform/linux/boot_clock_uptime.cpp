#include "platform/linux/boot_clock_uptime.h"

#include <ctime>

namespace quibbly::linux_services {

std::chrono::duration<double> BootClockUptime::sinceBoot() {
  struct timespec time{};
  if (::clock_gettime(CLOCK_BOOTTIME, &time) != 0) return {};
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

}  // namespace quibbly::linux_services
