#pragma once

#include <functional>
#include <string_view>

#include "platform/linux/session_bus.h"
#include "platform/notification_center.h"

namespace quibbly::linux_services {

/// Asks whether what is posted comes up on the screen: a desktop that is told not to disturb takes notifications and shows
/// none. Each notification server keeps that switch in a place of its own, so `serverName`, by which the server calls
/// itself, tells where to look. GNOME's is read by the program gsettings, which is looked for on the search path.
///
/// Answers once, on a later turn of the queue and within a few seconds; a switch that nobody tells about counts as not set.
void askAlertSetting(MainQueue& queue, SessionBus& bus, std::string_view searchPath, std::string_view serverName,
                     std::function<void(AlertSetting)> answer);

}  // namespace quibbly::linux_services
