#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fakes/private_bus.h"

namespace quibbly::fakes {

/// What a person who does not see a screen has of it: the accessible objects of the programs of a session (AT-SPI), found by
/// role and name, and used by their actions.
class ScreenReader {
 public:
  /// Has to be made before the programs are started.
  explicit ScreenReader(PrivateBus& session) : session_(session.address()) {
    session.offer("org.a11y.Bus", "/usr/libexec/at-spi-bus-launcher");
    sd_bus_message* answer = nullptr;
    const char* address = "";
    if (sd_bus_call_method(session_.get(), "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", nullptr,
                           &answer, "") >= 0) {
      sd_bus_message_read(answer, "s", &address);
      bus_.emplace(address);
    }
    sd_bus_message_unref(answer);
  }

  /// Whether the machine has the service.
  [[nodiscard]] bool works() const { return bus_.has_value(); }

  [[nodiscard]] bool sees(std::string_view role, std::string_view name) const { return find(role, name).has_value(); }
  /// Does what the object is there for: presses a button. False when it is not there.
  bool use(std::string_view role, std::string_view name) const {
    const auto object = find(role, name);
    return object && isDone(*object, "org.a11y.atspi.Action", "DoAction", "i", 0);
  }
  /// The number that a control holds; absent when it is not there.
  [[nodiscard]] std::optional<double> value(std::string_view role, std::string_view name) const {
    const auto object = find(role, name);
    double value = 0;
    if (!object || sd_bus_get_property_trivial(bus_->get(), object->program.c_str(), object->path.c_str(),
                                               "org.a11y.atspi.Value", "CurrentValue", nullptr, 'd', &value) < 0) {
      return std::nullopt;
    }
    return value;
  }
  bool setValue(std::string_view role, std::string_view name, double value) const {
    const auto object = find(role, name);
    return object && sd_bus_set_property(bus_->get(), object->program.c_str(), object->path.c_str(),
                                         "org.a11y.atspi.Value", "CurrentValue", nullptr, "d", value) >= 0;
  }
  /// All that there is, a line each: role and name.
  [[nodiscard]] std::string everything() const {
    std::string lines;
    visit(root(), [&](const Object& object) {
      lines.append(roleOf(object)).append(": ").append(nameOf(object)) += '\n';
      return false;
    });
    return lines;
  }

 private:
  struct Object {
    std::string program;
    std::string path;
  };

  static Object root() { return {"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"}; }

  template <typename... Arguments>
  bool isDone(const Object& object, const char* interface, const char* member, Arguments... arguments) const {
    return sd_bus_call_method(bus_->get(), object.program.c_str(), object.path.c_str(), interface, member, nullptr,
                              nullptr, arguments...) >= 0;
  }

  /// Asks the object, and has its answer read if there is one.
  template <typename Read>
  void ask(const Object& object, const char* member, const Read& read) const {
    sd_bus_message* answer = nullptr;
    if (sd_bus_call_method(bus_->get(), object.program.c_str(), object.path.c_str(), accessible, member, nullptr,
                           &answer, "") >= 0) {
      read(answer);
    }
    sd_bus_message_unref(answer);
  }

  [[nodiscard]] std::vector<Object> childrenOf(const Object& object) const {
    std::vector<Object> children;
    ask(object, "GetChildren", [&](sd_bus_message* answer) {
      const char *program = "", *path = "";
      sd_bus_message_enter_container(answer, 'a', "(so)");
      while (sd_bus_message_read(answer, "(so)", &program, &path) > 0) children.push_back({program, path});
    });
    return children;
  }

  [[nodiscard]] std::string roleOf(const Object& object) const {
    std::string role;
    ask(object, "GetRoleName", [&](sd_bus_message* answer) {
      const char* text = "";
      sd_bus_message_read(answer, "s", &text);
      role = text;
    });
    return role;
  }

  [[nodiscard]] std::string nameOf(const Object& object) const {
    char* name = nullptr;
    sd_bus_get_property_string(bus_->get(), object.program.c_str(), object.path.c_str(), accessible, "Name", nullptr,
                               &name);
    std::string copied = name != nullptr ? name : "";
    std::free(name);
    return copied;
  }

  /// Whether it is on the screen; what is behind it does not matter.
  [[nodiscard]] bool isShowing(const Object& object) const {
    constexpr std::uint32_t showing = 1U << 25U;
    std::uint32_t states = 0;
    ask(object, "GetState", [&](sd_bus_message* answer) {
      sd_bus_message_enter_container(answer, 'a', "u");
      sd_bus_message_read(answer, "u", &states);
    });
    return (states & showing) != 0;
  }

  /// Goes through what is below the object until one is the one that is looked for.
  template <typename IsIt>
  std::optional<Object> visit(const Object& object, const IsIt& isIt) const {
    for (const Object& child : childrenOf(object)) {
      if (isIt(child)) return child;
      if (auto found = visit(child, isIt)) return found;
    }
    return std::nullopt;
  }

  [[nodiscard]] std::optional<Object> find(std::string_view role, std::string_view name) const {
    return visit(root(), [&](const Object& object) {
      return roleOf(object) == role && nameOf(object).starts_with(name) && isShowing(object);
    });
  }

  static constexpr const char* accessible = "org.a11y.atspi.Accessible";

  BusPeer session_;
  std::optional<BusPeer> bus_;
};

}  // namespace quibbly::fakes
