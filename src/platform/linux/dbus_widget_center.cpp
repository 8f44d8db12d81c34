#include "platform/linux/dbus_widget_center.h"

#include <algorithm>
#include <string>
#include <utility>

namespace quibbly::linux_services {
namespace {

constexpr const char* path = "/org/quibbly/WidgetCenter";
constexpr const char* interface = "org.quibbly.WidgetCenter1";
constexpr std::string_view widgetNames = "org.quibbly.Quibbly.RoastWidget.";

/// The kind of widget that owns the name, which is KIND.iPID; absent when it is no widget's.
std::optional<std::string_view> kindOf(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  const std::string_view process = name.substr(std::min(dot + 1, name.size()));
  const bool isWidget = name.starts_with(widgetNames) && process.size() > 1 && process.front() == 'i' &&
                        process.find_first_not_of("0123456789", 1) == std::string_view::npos;
  return isWidget ? std::optional(name.substr(0, dot)) : std::nullopt;
}

/// The kinds among the names of a bus; absent when the answer is an error or anything else.
WidgetCenter::Configurations kindsIn(sd_bus_message* names) {
  if (names == nullptr || sd_bus_message_enter_container(names, 'a', "s") < 0) return std::nullopt;
  std::vector<std::string> kinds;
  const char* name = nullptr;
  int got = 0;
  while ((got = sd_bus_message_read_basic(names, 's', static_cast<void*>(&name))) > 0) {
    if (const auto kind = kindOf(name)) kinds.emplace_back(*kind);
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
