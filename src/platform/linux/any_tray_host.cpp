#include "platform/linux/any_tray_host.h"

#include <string>
#include <utility>

#include "platform/linux/service_presence.h"

namespace quibbly::linux_services {
namespace {

constexpr const char* watcher = "org.kde.StatusNotifierWatcher";
constexpr const char* watcherPath = "/StatusNotifierWatcher";

bool hasHost(sd_bus_message* answer) {
  int registered = 0;
  const bool isTold = isReply(answer) && sd_bus_message_enter_container(answer, SD_BUS_TYPE_VARIANT, "b") > 0 &&
                      sd_bus_message_read_basic(answer, SD_BUS_TYPE_BOOLEAN, &registered) > 0;
  return isTold && registered != 0;
}

}  // namespace

AnyTrayHost::AnyTrayHost(MainQueue& queue, SessionBus& bus, x11::XDisplay display)
    : queue_(queue), bus_(bus), display_(std::move(display)) {}

AnyTrayHost::~AnyTrayHost() {
  for (const auto subscription : subscriptions_) bus_.detach(subscription);
}

void AnyTrayHost::observe(std::function<void(bool isThere)> changed) {
  changed_ = std::move(changed);
  // A watcher may come first and its host later, or both at once.
  subscriptions_.push_back(bus_.subscribeToOwnerOf(watcher, [this] { askWatcher(); }));
  const std::string host = "type='signal',interface='" + std::string(watcher) + "',member='StatusNotifierHost";
  for (const auto& rule : {host + "Registered'", host + "Unregistered'"}) {
    subscriptions_.push_back(bus_.subscribe(rule, [this] { askWatcher(); }));
  }
  askWatcher();
  selection_ = std::make_unique<X11TraySelection>(queue_, std::move(display_), [this] {
    isOnDisplay_ = selection_->hasOwner();
    tell();
  });
  isOnDisplay_ = selection_->hasOwner();
  tell();
}

void AnyTrayHost::askWatcher() {
  const BusMessage question = bus_.newCall(watcher, watcherPath, "org.freedesktop.DBus.Properties", "Get");
  if (question) {
    (void)sd_bus_message_set_auto_start(question.get(), 0);
    (void)sd_bus_message_append(question.get(), "ss", watcher, "IsStatusNotifierHostRegistered");
  }
  bus_.call(question, lifetime_.whileItLasts([this](sd_bus_message* answer) { takeAnswer(answer); }));
}

void AnyTrayHost::takeAnswer(sd_bus_message* answer) {
  // At login everybody is busy; until it answers, what it said last holds.
  if (presence(answer) == Presence::silent) {
    askWatcher();
    return;
  }
  isOnBus_ = hasHost(answer);
  hasBusAnswered_ = true;
  tell();
}

void AnyTrayHost::tell() {
  const bool isThere = (isOnBus_ && (!isSettled_ || isOfBus_)) || (isOnDisplay_ && (!isSettled_ || !isOfBus_));
  if (std::exchange(told_, isThere) != isThere) {
    queue_.post(lifetime_.whileItLasts([this, isThere] { changed_(isThere); }));
  }
  if (!told_ || isSettled_ || !hasBusAnswered_) return;
  isSettled_ = true;
  isOfBus_ = isOnBus_;
}

}  // namespace quibbly::linux_services
