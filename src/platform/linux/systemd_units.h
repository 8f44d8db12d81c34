#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quibbly::linux_services {

/// The desktop id of the application that a unit of the user's systemd runs:
///   app[-launcher]-ID-RANDOM.scope, app[-launcher]-ID[@RANDOM].service, snap.NAME.APP-UUID.scope, snap.NAME.APP.UUID.scope
/// Absent for a unit of any other name, and for what the session starts by itself (app-...@autostart.service).
[[nodiscard]] std::optional<std::string> applicationIdOfUnit(std::string_view unit);

}  // namespace quibbly::linux_services
