#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "fakes/file_tree.h"
#include "fuzz/bus_message.h"
#include "fuzz/desk.h"
#include "fuzz/fuzzer.h"
#include "platform/linux/dbus_single_instance.h"
#include "platform/linux/own_names.h"

/// What any program of the session may call at quibbly's own object: "ActivateAction\nsava{sv}\n" and the values of the
/// arguments.
namespace quibbly::fuzz {
namespace {

using namespace linux_services;

constexpr std::string_view ownInterface = "org.freedesktop.Application";

/// The running program, and what it was asked by others.
class Program {
 public:
  Program() {
    instance_.claim({.activate = [this] { ++requests_; },
                     .open = [this](const std::vector<std::string>& urls) { opened(urls); },
                     .action = [this](const std::string& name) { asked(name); }},
                    {}, [this](SingleInstance::Place place) { place_ = place; });
    desk_.run();
    demand(place_ == SingleInstance::Place::first, "the program takes its place");
  }

  [[nodiscard]] bool isOpen() const { return desk_.isOpen(); }
  [[nodiscard]] sd_bus* others() const { return desk_.others(); }

  /// Sends the call, and tells whether the program was asked for something by it.
  bool isRequest(sd_bus_message* call) {
    int answers = 0;
    std::string error;
    auto told = std::tie(answers, error);
    sd_bus_slot* slot = nullptr;
    const auto take = [](sd_bus_message* answer, void* to, sd_bus_error*) {
      auto& [count, failure] = *static_cast<std::tuple<int&, std::string&>*>(to);
      ++count;
      if (const sd_bus_error* const failed = sd_bus_message_get_error(answer)) failure = failed->name;
      return 1;
    };
    constexpr std::uint64_t never = UINT64_MAX;
    requests_ = 0;
    desk_.queue().advance(std::chrono::seconds(1));  // in which no more is heard than a user asks for
    // Nobody can send what breaks the rules of the bus, such as texts that are no UTF-8.
    if (sd_bus_call_async(others(), &slot, call, take, &told, never) < 0) return false;
    const BusSlot waiting(slot);
    desk_.run();
    demand(!isOpen() || answers == 1, "a call has one answer");
    demand(error.empty() || requests_ == 0, "what is refused asks for nothing");
    demand(requests_ <= 1, "a call is one request at the most");
    return requests_ == 1;
  }

 private:
  void opened(const std::vector<std::string>& urls) {
    ++requests_;
    demand(urls.size() <= SingleInstance::mostAtOnce, "no more URLs are handed over than a user opens");
    std::ranges::for_each(urls, isShort);
  }
  void asked(const std::string& action) {
    ++requests_;
    isShort(action);
  }
  static void isShort(const std::string& text) {
    demand(text.size() <= SingleInstance::longestText, "no text is longer than a URL");
  }

  int requests_ = 0;
  std::optional<SingleInstance::Place> place_;
  fakes::FileTree files_;
  Desk desk_{[](sd_bus_message* /*call*/) {}};
  LockFile lock_{files_.root() / "lock"};
  DBusSingleInstance instance_{desk_.queue(), desk_.bus(), lock_};
};

struct Method {
  std::string_view name;
  std::string_view types;
};
constexpr auto methods =
    std::to_array<Method>({{"Activate", "a{sv}"}, {"Open", "asa{sv}"}, {"ActivateAction", "sava{sv}"}});

/// Null when there can be no such call.
BusMessage callOf(sd_bus* bus, const std::string& interface, const std::string& member) {
  sd_bus_message* made = nullptr;
  const bool isCall =
      sd_bus_message_new_method_call(bus, &made, Desk::quibbly, ownObjectPath, interface.c_str(), member.c_str()) >= 0;
  return BusMessage(isCall ? made : nullptr);
}

}  // namespace

void tryInput(std::string_view input) {
  static std::unique_ptr<Program> program;
  if (!program || !program->isOpen()) {
    program.reset();  // before the next takes its place
    program = std::make_unique<Program>();
    const BusMessage start = callOf(program->others(), std::string(ownInterface), "Activate");
    Bytes nothing("");
    demand(append(start.get(), "a{sv}", nothing) && program->isRequest(start.get()), "the program hears others");
  }
  Bytes bytes(input);
  // The interface is quibbly's own unless the member's name has another before it.
  const std::string name = bytes.text();
  const std::string types = bytes.text();
  const auto dot = name.rfind('.');
  const std::string interface = dot == std::string::npos ? std::string(ownInterface) : name.substr(0, dot);
  const std::string member = dot == std::string::npos ? name : name.substr(dot + 1);
  const BusMessage call = callOf(program->others(), interface, member);
  if (!call || !append(call.get(), types, bytes)) return;

  const auto isThis = [&](const Method& method) {
    return interface == ownInterface && member == method.name && types == method.types;
  };
  demand(!program->isRequest(call.get()) || std::ranges::any_of(methods, isThis), "nothing else asks for anything");
}

}  // namespace quibbly::fuzz
