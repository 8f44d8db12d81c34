#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/running_applications.h"

namespace quibbly::linux_services {

/// Asks several services in order; the first one that answers is believed.
class SessionApplications final : public RunningApplications {
 public:
  using Service = std::reference_wrapper<RunningApplications>;

  explicit SessionApplications(std::vector<Service> services);

  [[nodiscard]] std::optional<ApplicationsReading> running() override;

 private:
  std::vector<Service> services_;
};

/// The environment's variables WAYLAND_DISPLAY and XDG_SESSION_TYPE; empty when unset.
struct SessionVariables {
  std::string_view waylandDisplay;
  std::string_view sessionType;
};

/// Whether the session's windows are Wayland's. An X display then shows a few of them only, and asking it may even start
/// a server, so it comes last.
[[nodiscard]] bool isWaylandSession(const SessionVariables& variables);

}  // namespace quibbly::linux_services
