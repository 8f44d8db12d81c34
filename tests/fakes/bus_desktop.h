#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "fakes/private_bus.h"

namespace quibbly::fakes {

/// A desktop on a bus: its tray of StatusNotifierItems, watcher and host in one, and its portal. It answers when the test
/// has it serve.
class BusDesktop {
 public:
  /// 0 for no preference, 1 for dark, 2 for light.
  std::uint32_t colourScheme = 0;

  explicit BusDesktop(const std::string& address) : peer_(address) {
    sd_bus_add_filter(peer_.get(), nullptr, &BusDesktop::take, this);
  }

  void ownTray() const { sd_bus_request_name(peer_.get(), watcher, 0); }
  void ownPortal() const { sd_bus_request_name(peer_.get(), "org.freedesktop.portal.Desktop", 0); }
  void registerHost(bool isRegistered = true) {
    isRegistered_ = isRegistered;
    sd_bus_emit_signal(peer_.get(), "/StatusNotifierWatcher", watcher,
                       isRegistered ? "StatusNotifierHostRegistered" : "StatusNotifierHostUnregistered", "");
  }
  /// As when the program that has it ends.
  void giveUpTray() {
    sd_bus_release_name(peer_.get(), watcher);
    item_.clear();
  }
  void changeColourScheme(std::uint32_t scheme) {
    colourScheme = scheme;
    sd_bus_emit_signal(peer_.get(), "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings",
                       "SettingChanged", "ssv", "org.freedesktop.appearance", "color-scheme", "u", scheme);
  }

  void serve() const {
    while (sd_bus_process(peer_.get(), nullptr) > 0) {
    }
  }
  /// Whether anybody wanted to know if it is a host.
  [[nodiscard]] bool wasAsked() const { return wasAsked_; }
  /// The bus name of the icon that was registered last; empty without one.
  [[nodiscard]] const std::string& item() const { return item_; }
  /// As a click on the icon does.
  void activateItem() const {
    sd_bus_call_method_async(peer_.get(), nullptr, item_.c_str(), "/StatusNotifierItem", "org.kde.StatusNotifierItem",
                             "Activate", nullptr, nullptr, "ii", 0, 0);
  }

 private:
  static constexpr const char* watcher = "org.kde.StatusNotifierWatcher";

  /// Qt asks for no property that it is not told of.
  static constexpr const char* description =
      "<node><interface name='org.kde.StatusNotifierWatcher'>"
      "<property name='IsStatusNotifierHostRegistered' type='b' access='read'/>"
      "<method name='RegisterStatusNotifierItem'><arg type='s' direction='in'/></method>"
      "</interface></node>";

  static int take(sd_bus_message* call, void* self, sd_bus_error*) {
    if (!sd_bus_message_is_method_call(call, nullptr, nullptr)) return 0;
    return static_cast<BusDesktop*>(self)->answer(call, sd_bus_message_get_member(call));
  }

  int answer(sd_bus_message* call, std::string_view member) {
    if (member == "Introspect") return sd_bus_reply_method_return(call, "s", description);
    if (member == "Get") wasAsked_ = true;
    if (member == "Get") return sd_bus_reply_method_return(call, "v", "b", isRegistered_ ? 1 : 0);
    if (member == "Read") return sd_bus_reply_method_return(call, "v", "v", "u", colourScheme);
    if (member != "RegisterStatusNotifierItem") return 0;
    const char* name = "";
    sd_bus_message_read(call, "s", &name);
    item_ = name;
    return sd_bus_reply_method_return(call, "");
  }

  BusPeer peer_;
  bool isRegistered_ = false;
  bool wasAsked_ = false;
  std::string item_;
};

}  // namespace quibbly::fakes
