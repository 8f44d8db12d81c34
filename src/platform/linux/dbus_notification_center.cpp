#include "platform/linux/dbus_notification_center.h"

#include <string_view>
#include <utility>

#include "platform/linux/alert_settings.h"
#include "platform/linux/notification_service.h"
#include "platform/linux/service_presence.h"

namespace quibbly::linux_services {
namespace {

/// The name by which a server calls itself; empty when it answers anything else.
std::string nameIn(sd_bus_message* information) {
  const char* name = nullptr;
  const bool isInformation =
      isReply(information) && sd_bus_message_read_basic(information, 's', static_cast<void*>(&name)) > 0;
  return isInformation ? name : "";
}

/// A server that does not say what it can do is taken to show plain text, which all of them can.
bool hasBodyMarkup(sd_bus_message* capabilities) {
  if (sd_bus_message_enter_container(capabilities, 'a', "s") < 0) return false;
  const char* capability = nullptr;
  while (sd_bus_message_read_basic(capabilities, 's', static_cast<void*>(&capability)) > 0) {
    if (std::string_view(capability) == "body-markup") return true;
  }
  return false;
}

}  // namespace

BusMessage DBusNotificationCenter::newCall(const char* member) {
  return bus_.newCall(notification_service::name, notification_service::path, notification_service::interface, member);
}

void DBusNotificationCenter::settings(std::function<void(NotificationSettings)> answer) {
  const auto mayPost = [answer](AlertSetting alerts) {
    answer({.authorizationStatus = AuthorizationStatus::authorized, .alertSetting = alerts});
  };
  const auto answerFor = [this, answer = std::move(answer), mayPost](sd_bus_message* information) {
    switch (presence(information)) {
      case Presence::absent:
        answer({});
        break;
      case Presence::silent:
        // A server that is only slow is no refusal. The next notification tells better what is wrong, in its own words.
        mayPost(AlertSetting::enabled);
        break;
      case Presence::there:
        askAlertSetting(queue_, bus_, searchPath_, nameIn(information), lifetime_.whileItLasts(mayPost));
        break;
    }
  };
  bus_.call(newCall("GetServerInformation"), lifetime_.whileItLasts(answerFor));
}

void DBusNotificationCenter::requestAuthorization(AuthorizationOptions /*options*/,
                                                  std::function<void(Granted)> answer) {
  bus_.call(newCall("GetServerInformation"),
            lifetime_.whileItLasts([answer = std::move(answer)](sd_bus_message* information) {
              answer(presence(information) != Presence::absent);
            }));
}

void DBusNotificationCenter::add(NotificationRequest request, std::function<void(Added)> answer) {
  if (!request.delay) {
    queue_.post(lifetime_.whileItLasts(
        [this, request = std::move(request), answer = std::move(answer)] { deliver(request, answer); }));
    return;
  }
  const auto due = queue_.now() + *request.delay;
  const auto accept = [this, due, request = std::move(request),
                       answer = std::move(answer)](sd_bus_message* information) {
    const Added accepted = notification_service::success(information);
    answer(accepted);
    if (!accepted) return;
    const Answer nobodyWaits = [](const Added& /*added*/) {};
    queue_.runAt(due, lifetime_.whileItLasts([this, request, nobodyWaits] { deliver(request, nobodyWaits); }));
  };
  bus_.call(newCall("GetServerInformation"), lifetime_.whileItLasts(accept));
}

void DBusNotificationCenter::deliver(const NotificationRequest& request, const Answer& answer) {
  PresentationOptions shown{.banner = true, .list = true, .sound = true};
  if (delegate_ != nullptr) shown = delegate_->willPresent(request);
  if (!shown.list && !shown.banner) {
    answer({});
    return;
  }
  const auto deliverTo = [this, request, answer, makesSound = shown.sound](sd_bus_message* capabilities) {
    if (presence(capabilities) == Presence::there) {
      notify(request, {.bodyIsMarkup = hasBodyMarkup(capabilities), .makesSound = makesSound}, answer);
    } else {
      // Nobody waits a second time for a server that hangs.
      answer(notification_service::success(capabilities));
    }
  };
  bus_.call(newCall("GetCapabilities"), lifetime_.whileItLasts(deliverTo));
}

void DBusNotificationCenter::notify(const NotificationRequest& request, const NotificationStyle& style,
                                    const Answer& answer) {
  const BusMessage call = newCall("Notify");
  if (call && !fillIn(call.get(), request, style)) {
    answer(std::unexpected("The notification is not text."));
    return;
  }
  bus_.call(call, lifetime_.whileItLasts([this, identifier = request.identifier, answer](sd_bus_message* reply) {
    answer(take(identifier, reply));
  }));
}

NotificationCenter::Added DBusNotificationCenter::take(const std::string& identifier, sd_bus_message* reply) {
  const Added taken = notification_service::success(reply);
  if (!taken) return taken;
  const char* const server = sd_bus_message_get_sender(reply);
  Delivered delivered;
  if (server == nullptr || sd_bus_message_read(reply, "u", &delivered.number) < 0) {
    return std::unexpected("The notification service answers nonsense.");
  }
  delivered.server = server;
  delivered_.insert_or_assign(identifier, std::move(delivered));
  return taken;
}

void DBusNotificationCenter::removeDelivered(const std::string& identifier) {
  const auto withdrawn = delivered_.extract(identifier);
  if (!withdrawn) return;
  const Delivered& delivered = withdrawn.mapped();
  const BusMessage call = bus_.newCall(delivered.server.c_str(), notification_service::path,
                                       notification_service::interface, "CloseNotification");
  if (call && sd_bus_message_append(call.get(), "u", delivered.number) >= 0) bus_.send(call);
}

}  // namespace quibbly::linux_services
