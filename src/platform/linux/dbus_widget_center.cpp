#include "platform/linux/dbus_widget_center.h"

#include <string>
#include <utility>

namespace quibbly::linux_services {
namespace {

constexpr const char* path = "/org/quibbly/WidgetCenter";
constexpr const char* interface = "org.quibbly.WidgetCenter1";
constexpr std::string_view widgetNames = "org.quibbly.Quibbly.RoastWidget.";

/// The kinds among the names of a bus; absent when the answer is an error or anything else.
WidgetCenter::Configurations kindsIn(sd_bus_message* names) {
  if (names == nullptr || sd_bus_message_enter_container(names, 'a', "s") < 0) return std::nullopt;
  std::vector<std::string> kinds;
  const char* name = nullptr;
  int got = 0;
  while ((got = sd_bus_message_read_basic(names, 's', static_cast<void*>(&name))) > 0) {
    const std::string_view text = name;
    if (text.starts_with(widgetNames)) kinds.emplace_back(text.substr(0, text.rfind('.')));
  }
  return got == 0 ? WidgetCenter::Configurations(std::move(kinds)) : std::nullopt;
}

}  // namespace

void DBusWidgetCenter::reloadTimelines(std::string_view kind) {
  const BusMessage signal = bus_.newSignal(path, interface, "ReloadTimelines");
  if (signal && sd_bus_message_append_basic(signal.get(), 's', std::string(kind).c_str()) >= 0) bus_.send(signal);
}

void DBusWidgetCenter::reloadAllTimelines() { bus_.send(bus_.newSignal(path, interface, "ReloadAllTimelines")); }

void DBusWidgetCenter::currentConfigurations(std::function<void(Configurations)> answer) {
  const BusMessage question =
      bus_.newCall("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "ListNames");
  bus_.call(question, [answer = std::move(answer)](sd_bus_message* names) { answer(kindsIn(names)); });
}

}  // namespace quibbly::linux_services
