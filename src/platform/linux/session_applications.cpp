#include "platform/linux/session_applications.h"

#include <utility>

namespace quibbly::linux_services {

SessionApplications::SessionApplications(std::vector<Service> services) : services_(std::move(services)) {}

std::optional<ApplicationsReading> SessionApplications::running() {
  for (RunningApplications& service : services_) {
    if (auto reading = service.running()) return reading;
  }
  return std::nullopt;
}

bool isWaylandSession(const SessionVariables& variables) {
  // A session of type x11 may hold a nested Wayland compositor; one of type tty may have been made one by hand.
  if (variables.sessionType == "x11") return false;
  return variables.sessionType == "wayland" || !variables.waylandDisplay.empty();
}

}  // namespace quibbly::linux_services
