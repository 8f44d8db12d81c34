#include "platform/linux/any_tray_host.h"

#include <utility>

namespace quibbly::linux_services {
namespace {

constexpr const char* watcher = "org.kde.StatusNotifierWatcher";
constexpr const char* watcherPath = "/StatusNotifierWatcher";

bool hasHost(sd_bus_message* answer) {
  int registered = 0;
  const bool isTold = answer != nullptr && sd_bus_message_is_method_error(answer, nullptr) == 0 &&
                      sd_bus_message_enter_container(answer, SD_BUS_TYPE_VARIANT, "b") > 0 &&
                      sd_bus_message_read_basic(answer, SD_BUS_TYPE_BOOLEAN, &registered) > 0;
  return isTold && registered != 0;
}

}  // namespace

AnyTrayHost::AnyTrayHost(MainQueue& queue, SessionBus& bus, std::string display)
    : queue_(queue), bus_(bus), display_(std::move(display)) {}

AnyTrayHost::~AnyTrayHost() {
  for (const auto subscription : subscriptions_) bus_.detach(subscription);
}

void AnyTrayHost::await(std::function<void()> appeared) {
  appeared_ = std::move(appeared);
  // A watcher may come first and its host later, or both at once.
  const std::string owner =
      "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
      "member='NameOwnerChanged',arg0='" +
      std::string(watcher) + "'";
  const std::string host =
      "type='signal',interface='" + std::string(watcher) + "',member='StatusNotifierHostRegistered'";
  for (const auto& rule : {owner, host}) subscriptions_.push_back(bus_.subscribe(rule, [this] { askWatcher(); }));
  askWatcher();
  selection_ = std::make_unique<X11TraySelection>(queue_, display_, [this] { found(); });
  if (selection_->hasOwner()) found();
}

void AnyTrayHost::askWatcher() {
  const BusMessage question = bus_.newCall(watcher, watcherPath, "org.freedesktop.DBus.Properties", "Get");
  if (question) {
    (void)sd_bus_message_set_auto_start(question.get(), 0);
    (void)sd_bus_message_append(question.get(), "ss", watcher, "IsStatusNotifierHostRegistered");
  }
  bus_.call(question, lifetime_.whileItLasts([this](sd_bus_message* answer) {
    if (hasHost(answer)) found();
  }));
}

/// Whoever was found: nobody is waited for any more.
void AnyTrayHost::found() {
  if (!appeared_) return;
  for (const auto subscription : std::exchange(subscriptions_, {})) bus_.detach(subscription);
  // It may be the one that calls.
  queue_.post([gone = std::move(selection_), appeared = std::exchange(appeared_, nullptr)] { appeared(); });
}

}  // namespace quibbly::linux_services
