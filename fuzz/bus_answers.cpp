#include <string>

#include "fuzz/bus_message.h"
#include "fuzz/desk.h"
#include "fuzz/fuzzer.h"
#include "platform/linux/dbus_notification_center.h"
#include "platform/linux/portal_appearance.h"

/// What notification servers and portals answer. Each answer is "org.example.Error\nmessage\n", or a line of its
/// arguments' types and then their values.
namespace quibbly::fuzz {
namespace {

using namespace linux_services;

void reply(sd_bus_message* call, Bytes& bytes) {
  const std::string types = bytes.text();
  if (sd_bus_interface_name_is_valid(types.c_str()) > 0) {
    const std::string message = bytes.text();
    if (sd_bus_reply_method_errorf(call, types.c_str(), "%s", message.c_str()) >= 0) return;
  }
  sd_bus_message* made = nullptr;
  demand(sd_bus_message_new_method_return(call, &made) >= 0, "a call can be answered");
  const BusMessage answer(made);
  const bool isAnswer = append(made, types, bytes) && sd_bus_message_set_sender(made, ":1.2") >= 0 &&
                        sd_bus_send(nullptr, made, nullptr) >= 0;
  if (!isAnswer) sd_bus_reply_method_return(call, "");
}

}  // namespace

void tryInput(std::string_view input) {
  Bytes bytes(input);
  Desk desk([&bytes](sd_bus_message* call) { reply(call, bytes); });
  DBusNotificationCenter center(desk.queue(), desk.bus(), "/nowhere");
  PortalAppearance portal(desk.bus());

  int answers = 0;
  center.settings([&answers](const NotificationSettings& settings) {
    ++answers;
    const bool mayPost = settings.authorizationStatus == AuthorizationStatus::authorized;
    demand(mayPost || settings == NotificationSettings{}, "who finds no server is denied");
  });
  desk.run();
  center.add({.identifier = "one", .title = "quibbly", .body = "<b>", .delay = {}}, [&answers](const auto& added) {
    ++answers;
    demand(added || !added.error().empty(), "a refusal has words");
  });
  desk.run();
  center.requestAuthorization({.alert = true}, [&answers](const auto& granted) {
    ++answers;
    demand(granted.has_value(), "asking does not fail");
  });
  portal.observe([](std::optional<Appearance> /*appearance*/) {});
  desk.run();
  center.removeDelivered("one");
  desk.run();
  demand(answers == 3, "each question is answered once");
}

}  // namespace quibbly::fuzz
