#include "platform/linux/notification_message.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "platform/linux/own_names.h"
#include "platform/linux/text_encoding.h"

namespace quibbly::linux_services {
namespace {

constexpr const char* applicationName = "quibbly";
constexpr std::uint32_t replacesNone = 0;
constexpr unsigned actionCount = 0;
constexpr std::int32_t usualExpiry = -1;

std::string escaped(std::string_view text) {
  std::string markup;
  for (const char c : text) {
    switch (c) {
      case '&':
        markup += "&amp;";
        break;
      case '<':
        markup += "&lt;";
        break;
      case '>':
        markup += "&gt;";
        break;
      default:
        markup += c;
    }
  }
  return markup;
}

int urgencyOf(InterruptionLevel level) {
  switch (level) {
    case InterruptionLevel::passive:
      return 0;
    case InterruptionLevel::active:
    case InterruptionLevel::timeSensitive:
      return 1;
    case InterruptionLevel::critical:
      return 2;
  }
  return 1;
}

/// A bus throws out whoever sends it anything else, and with that connection everything else that uses it.
bool isSendable(const NotificationRequest& r) {
  return isUtf8(r.title) && isUtf8(r.body) &&
         std::ranges::all_of(r.userInfo, [](const auto& info) { return isUtf8(info.first) && isUtf8(info.second); });
}

bool addText(sd_bus_message* call, const std::string& hint, const char* text) {
  return sd_bus_message_append(call, "{sv}", hint.c_str(), "s", text) >= 0;
}

bool addSound(sd_bus_message* call, bool makesSound) {
  return makesSound ? addText(call, "sound-name", "message-new-instant")
                    : sd_bus_message_append(call, "{sv}", "suppress-sound", "b", 1) >= 0;
}

bool addHints(sd_bus_message* call, const NotificationRequest& request, bool makesSound) {
  return sd_bus_message_open_container(call, 'a', "{sv}") >= 0 &&
         sd_bus_message_append(call, "{sv}", "urgency", "y", urgencyOf(request.interruptionLevel)) >= 0 &&
         addText(call, "category", "device") && addText(call, "desktop-entry", ownDesktopId) &&
         addSound(call, makesSound) &&
         std::ranges::all_of(
             request.userInfo,
             [call](const auto& info) { return addText(call, "x-quibbly-" + info.first, info.second.c_str()); }) &&
         sd_bus_message_close_container(call) >= 0;
}

}  // namespace

bool fillIn(sd_bus_message* call, const NotificationRequest& request, const NotificationStyle& style) {
  const std::string body = style.bodyIsMarkup ? escaped(request.body) : request.body;
  return isSendable(request) &&
         sd_bus_message_append(call, "susssas", applicationName, replacesNone, ownDesktopId, request.title.c_str(),
                               body.c_str(), actionCount) >= 0 &&
         addHints(call, request, request.defaultSound && style.makesSound) &&
         sd_bus_message_append(call, "i", usualExpiry) >= 0;
}

}  // namespace quibbly::linux_services
