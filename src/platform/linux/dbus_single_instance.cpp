#include "platform/linux/dbus_single_instance.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

namespace quibbly::linux_services {
namespace {

constexpr const char* name = "org.quibbly.Quibbly";
constexpr const char* path = "/org/quibbly/Quibbly";
constexpr const char* interface = "org.freedesktop.Application";

// What any program of the session may send; more than that is nothing that a user did.
constexpr std::size_t mostUrls = 32;
constexpr std::size_t longestText = 4096;

enum class NameReply : std::uint32_t { primaryOwner = 1, exists = 3, alreadyOwner = 4 };

DBusSingleInstance& instance(void* self) { return *static_cast<DBusSingleInstance*>(self); }

int refuse(sd_bus_error* error, const char* why) { return sd_bus_error_set(error, SD_BUS_ERROR_INVALID_ARGS, why); }

int activate(sd_bus_message* call, void* self, sd_bus_error* /*error*/) {
  instance(self).pass([](const auto& requests) { requests.activate(); });
  return sd_bus_reply_method_return(call, nullptr);
}

int open(sd_bus_message* call, void* self, sd_bus_error* error) {
  std::vector<std::string> urls;
  const char* url = nullptr;
  int got = sd_bus_message_enter_container(call, 'a', "s");
  while (got > 0 && (got = sd_bus_message_read_basic(call, 's', static_cast<void*>(&url))) > 0) {
    if (urls.size() == mostUrls || std::strlen(url) > longestText) return refuse(error, "Too many or too long URLs.");
    urls.emplace_back(url);
  }
  if (got < 0) return got;
  instance(self).pass([urls = std::move(urls)](const auto& requests) { requests.open(urls); });
  return sd_bus_reply_method_return(call, nullptr);
}

int activateAction(sd_bus_message* call, void* self, sd_bus_error* error) {
  const char* action = nullptr;
  const int got = sd_bus_message_read_basic(call, 's', static_cast<void*>(&action));
  if (got < 0) return got;
  if (std::strlen(action) > longestText) return refuse(error, "Too long a name of an action.");
  instance(self).pass([action = std::string(action)](const auto& requests) { requests.action(action); });
  return sd_bus_reply_method_return(call, nullptr);
}

const sd_bus_vtable methods[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Activate", "a{sv}", "", activate, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Open", "asa{sv}", "", open, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("ActivateAction", "sava{sv}", "", activateAction, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

/// The same with nothing in it: what a start could tell about its window is not passed on.
int appendNoPlatformData(const BusMessage& call) { return sd_bus_message_append(call.get(), "a{sv}", 0); }

bool appendUrls(const BusMessage& call, const std::vector<std::string>& urls) {
  if (sd_bus_message_open_container(call.get(), 'a', "s") < 0) return false;
  for (const std::string& url : urls) {
    if (sd_bus_message_append_basic(call.get(), 's', url.c_str()) < 0) return false;
  }
  return sd_bus_message_close_container(call.get()) >= 0;
}

}  // namespace

DBusSingleInstance::~DBusSingleInstance() {
  for (const auto attachment : attachments_) bus_.detach(attachment);
}

void DBusSingleInstance::claim(Requests requests, std::vector<std::string> urls, std::function<void(Place)> answer) {
  requests_ = std::move(requests);
  urls_ = std::move(urls);
  answer_ = std::move(answer);
  // The object is there before the name is: who finds the name may call at once.
  attachments_.push_back(bus_.attach([this](sd_bus* bus) {
    sd_bus_slot* slot = nullptr;
    (void)sd_bus_add_object_vtable(bus, &slot, path, interface, static_cast<const sd_bus_vtable*>(methods), this);
    return slot;
  }));
  attachments_.push_back(bus_.attach([this](sd_bus*) {
    requestName();
    return nullptr;
  }));
  if (!hasAsked_) {
    queue_.post([this, alive = std::weak_ptr(alive_)] {
      if (!alive.expired()) named(nullptr);
    });
  }
}

void DBusSingleInstance::pass(std::move_only_function<void(const Requests&)> request) {
  if (!isFirst_) return;
  queue_.post([this, alive = std::weak_ptr(alive_), request = std::move(request)]() mutable {
    if (!alive.expired()) request(requests_);
  });
}

void DBusSingleInstance::requestName() {
  constexpr std::uint32_t doNotQueue = 4;
  hasAsked_ = true;
  const BusMessage call =
      bus_.newCall("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName");
  if (call) (void)sd_bus_message_append(call.get(), "su", name, doNotQueue);
  bus_.call(call, [this, alive = std::weak_ptr(alive_)](sd_bus_message* answer) {
    if (!alive.expired()) named(answer);
  });
}

/// An answer after the first is that of a connection that was made anew, and changes nothing.
void DBusSingleInstance::named(sd_bus_message* answer) {
  if (!answer_) return;
  std::uint32_t reply = 0;
  if (answer != nullptr) (void)sd_bus_message_read_basic(answer, 'u', &reply);
  if (NameReply(reply) == NameReply::exists) {
    handOver();
  } else {
    settle(lock_.heldElsewhere() ? Place::refused : Place::first);
  }
}

void DBusSingleInstance::handOver() {
  BusMessage call = bus_.newCall(name, path, interface, urls_.empty() ? "Activate" : "Open");
  const bool made = call && (urls_.empty() || appendUrls(call, urls_)) && appendNoPlatformData(call) >= 0;
  if (!made) call.reset();
  bus_.call(call, [this, alive = std::weak_ptr(alive_)](sd_bus_message* answer) {
    if (alive.expired()) return;
    const bool taken = answer != nullptr && sd_bus_message_is_method_error(answer, nullptr) == 0;
    settle(taken ? Place::handedOver : Place::refused);
  });
}

void DBusSingleInstance::settle(Place place) {
  isFirst_ = place == Place::first;
  std::exchange(answer_, nullptr)(place);
}

}  // namespace quibbly::linux_services
