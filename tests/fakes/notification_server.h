#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/private_bus.h"

namespace quibbly::fakes {

/// A desktop's notification server on a bus, and its settings service. It answers when the test has it serve.
class NotificationServer {
 public:
  struct Note {
    std::uint32_t number = 0;
    std::string summary;
    std::string body;
    /// As text, such as "y 1"; the other arguments of Notify under their own names.
    std::map<std::string, std::string> hints;
  };

  std::string name = "a server";
  bool takesMarkup = true;
  /// The switches that are on, by interface or place and name.
  std::set<std::string> switches;
  std::string refusal;
  bool hangs = false;
  bool talksNonsense = false;
  /// Ends after it has answered this.
  std::string diesAfter;
  std::vector<Note> onScreen;
  std::vector<std::string> calls;

  explicit NotificationServer(const std::string& address) : peer_(std::make_unique<BusPeer>(address)) {
    sd_bus_add_filter(peer_->get(), nullptr, &NotificationServer::take, this);
    for (const char* owned : {"org.freedesktop.Notifications", "org.xfce.Xfconf"}) {
      sd_bus_request_name(peer_->get(), owned, 0);
    }
  }
  NotificationServer(const NotificationServer&) = delete;
  NotificationServer& operator=(const NotificationServer&) = delete;
  ~NotificationServer() = default;

  void serve() {
    while (peer_ && !hangs && sd_bus_process(peer_->get(), nullptr) > 0) {
      if (calls.empty() || calls.back() != diesAfter) continue;
      sd_bus_flush(peer_->get());
      peer_.reset();
    }
  }
  void die() { peer_.reset(); }

 private:
  static int take(sd_bus_message* call, void* self, sd_bus_error*) {
    if (!sd_bus_message_is_method_call(call, nullptr, nullptr)) return 0;
    auto& server = *static_cast<NotificationServer*>(self);
    server.calls.emplace_back(sd_bus_message_get_member(call));
    if (server.talksNonsense) return sd_bus_reply_method_return(call, "d", 0.5);
    return server.answer(call, server.calls.back());
  }

  int answer(sd_bus_message* call, std::string_view member) {
    if (member == "GetServerInformation") return sd_bus_reply_method_return(call, "ssss", name.c_str(), "", "", "1.2");
    if (member == "Get" || member == "GetProperty") return answerSwitch(call);
    if (member == "CloseNotification") return close(call);
    if (member == "GetCapabilities") {
      return sd_bus_reply_method_return(call, "as", 2, "body", takesMarkup ? "body-markup" : "sound");
    }
    if (member != "Notify") return 0;
    if (!refusal.empty()) return sd_bus_reply_method_errorf(call, "org.example.Refused", "%s", refusal.c_str());
    onScreen.push_back(noteIn(call));
    return sd_bus_reply_method_return(call, "u", onScreen.back().number);
  }
  int answerSwitch(sd_bus_message* call) {
    const char *place = "", *key = "";
    sd_bus_message_read(call, "ss", &place, &key);
    return sd_bus_reply_method_return(call, "v", "b", int{switches.contains(std::string(place) + " " + key)});
  }
  int close(sd_bus_message* call) {
    std::uint32_t number = 0;
    sd_bus_message_read(call, "u", &number);
    std::erase_if(onScreen, [number](const Note& note) { return note.number == number; });
    return sd_bus_reply_method_return(call, "");
  }

  Note noteIn(sd_bus_message* call) {
    const char *application = "", *icon = "", *summary = "", *body = "", *hint = "";
    std::uint32_t replaced = 0;
    std::int32_t expiry = 0;
    sd_bus_message_read(call, "susss", &application, &replaced, &icon, &summary, &body);
    Note note{.number = ++lastNumber_, .summary = summary, .body = body, .hints = {{"app_name", application}}};
    note.hints["app_icon"] = icon;
    note.hints["replaces_id"] = std::to_string(replaced);
    note.hints["actions"] = sd_bus_message_skip(call, "as") >= 0 ? "" : "missing";
    sd_bus_message_enter_container(call, 'a', "{sv}");
    while (sd_bus_message_enter_container(call, 'e', "sv") > 0) {
      sd_bus_message_read(call, "s", &hint);
      note.hints[hint] = variantIn(call);
      sd_bus_message_exit_container(call);
    }
    sd_bus_message_exit_container(call);
    sd_bus_message_read(call, "i", &expiry);
    note.hints["expire_timeout"] = std::to_string(expiry);
    return note;
  }
  static std::string variantIn(sd_bus_message* call) {
    const char *type = "", *text = "";
    std::uint8_t byte = 0;
    int truth = 0;
    sd_bus_message_peek_type(call, nullptr, &type);
    if (*type == 'y' && sd_bus_message_read(call, "v", "y", &byte) > 0) return "y " + std::to_string(byte);
    if (*type == 'b' && sd_bus_message_read(call, "v", "b", &truth) > 0) return truth ? "b true" : "b false";
    return sd_bus_message_read(call, "v", "s", &text) > 0 ? text : "not understood";
  }

  std::unique_ptr<BusPeer> peer_;
  std::uint32_t lastNumber_ = 0;
};

}  // namespace quibbly::fakes
