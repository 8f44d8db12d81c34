#include "platform/linux/dbus_single_instance.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <utility>

#include "platform/linux/own_names.h"

namespace quibbly::linux_services {
namespace {

constexpr const char* interface = "org.freedesktop.Application";

/// The answer to a request for a name that another connection has.
constexpr std::uint32_t nameExists = 3;

DBusSingleInstance& instance(void* self) { return *static_cast<DBusSingleInstance*>(self); }

constexpr const char* notTheFirst = "This start is not the first.";

int refuse(sd_bus_error* error, const char* why) { return sd_bus_error_set(error, SD_BUS_ERROR_INVALID_ARGS, why); }

int activate(sd_bus_message* call, void* self, sd_bus_error* error) {
  // A start that the bus makes for it is all that was asked for.
  const bool isDone = instance(self).isStarting();
  return instance(self).hear(call, error, 1, [isDone](const auto& requests) {
    if (!isDone) requests.activate();
  });
}

int open(sd_bus_message* call, void* self, sd_bus_error* error) {
  std::vector<std::string> urls;
  const char* url = nullptr;
  int got = sd_bus_message_enter_container(call, 'a', "s");
  while (got > 0 && (got = sd_bus_message_read_basic(call, 's', static_cast<void*>(&url))) > 0) {
    if (urls.size() == SingleInstance::mostAtOnce || std::strlen(url) > SingleInstance::longestText)
      return refuse(error, "Too many or too long URLs.");
    urls.emplace_back(url);
  }
  if (got < 0) return got;
  const std::size_t count = std::max<std::size_t>(urls.size(), 1);
  return instance(self).hear(call, error, count,
                             [urls = std::move(urls)](const auto& requests) { requests.open(urls); });
}

int activateAction(sd_bus_message* call, void* self, sd_bus_error* error) {
  const char* name = nullptr;
  const int got = sd_bus_message_read_basic(call, 's', static_cast<void*>(&name));
  if (got < 0) return got;
  if (std::strlen(name) > SingleInstance::longestText) return refuse(error, "Too long a name of an action.");
  const auto action = std::make_shared<const std::string>(name);
  return instance(self).hear(call, error, 1, [action](const auto& requests) { requests.action(*action); });
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
    (void)sd_bus_add_object_vtable(bus, &slot, ownObjectPath, interface, static_cast<const sd_bus_vtable*>(methods),
                                   this);
    return slot;
  }));
  attachments_.push_back(bus_.attach([this](sd_bus*) {
    requestName();
    return nullptr;
  }));
  if (!hasAsked_) {
    queue_.post(lifetime_.whileItLasts([this] { named(nullptr); }));
  }
}

int DBusSingleInstance::hear(sd_bus_message* call, sd_bus_error* error, std::size_t count, Request request) {
  if (!isStarting() && !isFirst_) return refuse(error, notTheFirst);
  if (!allows(count)) {
    return sd_bus_error_set(error, SD_BUS_ERROR_LIMITS_EXCEEDED, "Too many requests within a second.");
  }
  if (!isStarting()) {
    post(std::move(request));
    return sd_bus_reply_method_return(call, nullptr);
  }
  early_.push_back({.call = BusMessage(sd_bus_message_ref(call)), .request = std::move(request)});
  return 1;
}

void DBusSingleInstance::post(Request request) {
  queue_.post(lifetime_.whileItLasts([this, request = std::move(request)]() mutable { request(requests_); }));
}

bool DBusSingleInstance::allows(std::size_t count) {
  const auto now = queue_.now();
  if (now - askedSince_ >= std::chrono::seconds(1)) {
    askedSince_ = now;
    asked_ = 0;
  }
  asked_ += count;
  return asked_ <= mostAtOnce;
}

void DBusSingleInstance::requestName() {
  constexpr std::uint32_t doNotQueue = 4;
  hasAsked_ = true;
  const BusMessage call =
      bus_.newCall("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName");
  if (call) (void)sd_bus_message_append(call.get(), "su", ownBusName, doNotQueue);
  bus_.call(call, lifetime_.whileItLasts([this](sd_bus_message* answer) { named(answer); }));
}

/// An answer after the first is that of a connection that was made anew, and changes nothing.
void DBusSingleInstance::named(sd_bus_message* answer) {
  if (!answer_) return;
  std::uint32_t reply = 0;
  if (answer != nullptr) (void)sd_bus_message_read_basic(answer, 'u', &reply);
  if (reply == nameExists) {
    handOver();
  } else {
    settle(lock_.take() ? Place::first : Place::refused);
  }
}

void DBusSingleInstance::handOver() {
  BusMessage call = bus_.newCall(ownBusName, ownObjectPath, interface, urls_.empty() ? "Activate" : "Open");
  const bool made = call && (urls_.empty() || appendUrls(call, urls_)) && appendNoPlatformData(call) >= 0;
  if (!made) call.reset();
  bus_.call(call, lifetime_.whileItLasts([this](sd_bus_message* answer) {
    settle(isReply(answer) ? Place::handedOver : Place::refused);
  }));
}

void DBusSingleInstance::settle(Place place) {
  isFirst_ = place == Place::first;
  for (Early& early : std::exchange(early_, {})) {
    if (!isFirst_) {
      (void)sd_bus_reply_method_errorf(early.call.get(), SD_BUS_ERROR_INVALID_ARGS, "%s", notTheFirst);
      continue;
    }
    (void)sd_bus_reply_method_return(early.call.get(), nullptr);
    post(std::move(early.request));
  }
  std::exchange(answer_, nullptr)(place);
}

}  // namespace quibbly::linux_services
