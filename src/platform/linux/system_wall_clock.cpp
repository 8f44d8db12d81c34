#include "platform/linux/system_wall_clock.h"

namespace quibbly::linux_services {

std::chrono::system_clock::time_point SystemWallClock::now() const { return std::chrono::system_clock::now(); }

}  // namespace quibbly::linux_services
