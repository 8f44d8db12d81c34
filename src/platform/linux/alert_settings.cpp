#include "platform/linux/alert_settings.h"

#include <array>
#include <memory>
#include <string>
#include <utility>

#include "platform/linux/notification_service.h"
#include "platform/linux/program_output.h"
#include "platform/linux/text_fields.h"

namespace quibbly::linux_services {
namespace {

constexpr std::string_view anyServer;
constexpr const char* properties = "org.freedesktop.DBus.Properties";

/// A truth value that keeps notifications off the screen when it is true, and the call that gets it.
struct BusSwitch {
  std::string_view server;
  const char* service;
  const char* path;
  const char* interface;
  const char* member;
  const char* place;
  const char* name;
};

constexpr auto busSwitches = std::to_array<BusSwitch>({
    {anyServer, notification_service::name, notification_service::path, properties, "Get",
     notification_service::interface, "Inhibited"},
    {"dunst", notification_service::name, notification_service::path, properties, "Get", "org.dunstproject.cmd0",
     "paused"},
    {"Xfce Notify Daemon", "org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf", "GetProperty", "xfce4-notifyd",
     "/do-not-disturb"},
});

/// A key of GSettings that keeps notifications off the screen when it is false.
struct SettingsKey {
  std::string_view server;
  const char* schema;
  const char* key;
};

constexpr auto settingsKeys = std::to_array<SettingsKey>({
    {"gnome-shell", "org.gnome.desktop.notifications", "show-banners"},
    {"gnome-shell",
     "org.gnome.desktop.notifications.application:/org/gnome/desktop/notifications/application/org-quibbly-quibbly/",
     "enable"},
});

/// The questions under way, all asked at once: any of them can tell that nothing comes up.
class Poll {
 public:
  explicit Poll(std::function<void(AlertSetting)> answer) : answer_(std::move(answer)) {}

  void asked() { ++open_; }
  void answered(bool isQuiet) {
    isQuiet_ = isQuiet_ || isQuiet;
    if (--open_ == 0) answer_(isQuiet_ ? AlertSetting::disabled : AlertSetting::enabled);
  }

 private:
  std::function<void(AlertSetting)> answer_;
  int open_ = 0;
  bool isQuiet_ = false;
};

bool isTrue(sd_bus_message* answer) {
  int value = 0;
  return answer != nullptr && sd_bus_message_read(answer, "v", "b", &value) >= 0 && value != 0;
}

void ask(SessionBus& bus, const BusSwitch& s, const std::shared_ptr<Poll>& poll) {
  poll->asked();
  BusMessage question = bus.newCall(s.service, s.path, s.interface, s.member);
  if (question && sd_bus_message_append(question.get(), "ss", s.place, s.name) < 0) question.reset();
  bus.call(question, [poll](sd_bus_message* answer) { poll->answered(isTrue(answer)); });
}

void ask(MainQueue& queue, std::string_view searchPath, const SettingsKey& k, const std::shared_ptr<Poll>& poll) {
  poll->asked();
  readOutput(queue, {"gsettings", "get", k.schema, k.key}, searchPath,
             [poll](const std::string& output) { poll->answered(trimmed(output) == "false"); });
}

}  // namespace

void askAlertSetting(MainQueue& queue, SessionBus& bus, std::string_view searchPath, std::string_view serverName,
                     std::function<void(AlertSetting)> answer) {
  const auto poll = std::make_shared<Poll>(std::move(answer));
  for (const BusSwitch& s : busSwitches) {
    if (s.server == anyServer || s.server == serverName) ask(bus, s, poll);
  }
  for (const SettingsKey& k : settingsKeys) {
    if (k.server == serverName) ask(queue, searchPath, k, poll);
  }
}

}  // namespace quibbly::linux_services
