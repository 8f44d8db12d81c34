#include "platform/linux/portal_appearance.h"

#include <cstdint>
#include <string>
#include <utility>

namespace quibbly::linux_services {
namespace {

constexpr const char* portal = "org.freedesktop.portal.Desktop";
constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* settings = "org.freedesktop.portal.Settings";
constexpr const char* appearance = "org.freedesktop.appearance";
constexpr const char* colourScheme = "color-scheme";

/// `Read` wraps the value into one variant more than it says.
std::optional<Appearance> appearanceIn(sd_bus_message* answer) {
  char kind = 0;
  const char* content = nullptr;
  while (sd_bus_message_peek_type(answer, &kind, &content) > 0 && kind == SD_BUS_TYPE_VARIANT) {
    if (sd_bus_message_enter_container(answer, kind, content) <= 0) return std::nullopt;
  }
  std::uint32_t scheme = 0;
  if (sd_bus_message_read_basic(answer, SD_BUS_TYPE_UINT32, &scheme) <= 0) return std::nullopt;
  // The portal's own numbers; 0, and what may be added one day, is no preference.
  if (scheme == 1) return Appearance::dark;
  return scheme == 2 ? std::optional(Appearance::light) : std::nullopt;
}

}  // namespace

PortalAppearance::~PortalAppearance() {
  for (const auto subscription : subscriptions_) bus_.detach(subscription);
}

void PortalAppearance::observe(std::function<void(std::optional<Appearance>)> changed) {
  changed_ = std::move(changed);
  const std::string change = std::string("type='signal',path='") + portalPath + "',interface='" + settings +
                             "',member='SettingChanged',arg0='" + appearance + "',arg1='" + colourScheme + "'";
  subscriptions_.push_back(bus_.subscribe(change, [this] { ask(); }));
  // At login it may come after us, or take longer to answer than we wait. One that ends is not started again.
  subscriptions_.push_back(bus_.subscribeToOwnerOf(portal, [this] { ask(); }));
  ask(true);
}

void PortalAppearance::ask(bool mayStartIt) {
  const BusMessage question = bus_.newCall(portal, portalPath, settings, "Read");
  if (question) {
    (void)sd_bus_message_set_auto_start(question.get(), mayStartIt ? 1 : 0);
    (void)sd_bus_message_append(question.get(), "ss", appearance, colourScheme);
  }
  bus_.call(question, lifetime_.whileItLasts([this](sd_bus_message* answer) {
    if (isReply(answer)) changed_(appearanceIn(answer));
  }));
}

}  // namespace quibbly::linux_services
