#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quibbly::linux_services {

/// The bundle identifier of a well-known application, by the desktop id or the WM_CLASS of any of its packages; case
/// does not matter, nor does a ".desktop" at the end. Absent for any other.
[[nodiscard]] std::optional<std::string_view> knownBundleIdentifier(std::string_view desktopIdOrClass);

/// As above for the id of an installed desktop entry, which has lost its ".desktop" already; an application that is not
/// well known has its desktop id for its bundle identifier.
[[nodiscard]] std::string bundleIdentifierFor(std::string_view desktopId);

}  // namespace quibbly::linux_services
