#pragma once

/// What this program is called on a desktop.
namespace quibbly::linux_services {

/// Of the desktop entry, without ".desktop", and of the icon.
inline constexpr const char* ownDesktopId = "org.quibbly.Quibbly";
/// On the session bus. A desktop starts a program by the name of its entry, so the two are one.
inline constexpr const char* ownBusName = ownDesktopId;
inline constexpr const char* ownObjectPath = "/org/quibbly/Quibbly";

}  // namespace quibbly::linux_services
