#include "platform/linux/x11_windows.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/x11/x11_handles.h"

namespace quibbly::linux_services {
namespace {

using namespace x11;

using Property = XReply<xcb_get_property_reply_t>;

struct TypeName {
  std::string_view name;
  WindowType type;
};
constexpr auto typeNames = std::to_array<TypeName>({
    {"_NET_WM_WINDOW_TYPE_NORMAL", WindowType::normal},
    {"_NET_WM_WINDOW_TYPE_DIALOG", WindowType::dialog},
    {"_NET_WM_WINDOW_TYPE_DESKTOP", WindowType::other},
    {"_NET_WM_WINDOW_TYPE_DOCK", WindowType::other},
    {"_NET_WM_WINDOW_TYPE_TOOLBAR", WindowType::other},
    {"_NET_WM_WINDOW_TYPE_MENU", WindowType::other},
    {"_NET_WM_WINDOW_TYPE_UTILITY", WindowType::other},
    {"_NET_WM_WINDOW_TYPE_SPLASH", WindowType::other},
    {"_NET_WM_WINDOW_TYPE_DROPDOWN_MENU", WindowType::other},
    {"_NET_WM_WINDOW_TYPE_POPUP_MENU", WindowType::other},
    {"_NET_WM_WINDOW_TYPE_TOOLTIP", WindowType::other},
    {"_NET_WM_WINDOW_TYPE_NOTIFICATION", WindowType::other},
    {"_NET_WM_WINDOW_TYPE_COMBO", WindowType::other},
    {"_NET_WM_WINDOW_TYPE_DND", WindowType::other},
});

// In the order of the fields of Atoms, which the types follow.
constexpr auto propertyNames =
    std::to_array<std::string_view>({"_NET_CLIENT_LIST", "_NET_ACTIVE_WINDOW", "_NET_WM_PID", "_NET_WM_WINDOW_TYPE",
                                     "_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR"});

struct Atoms {
  xcb_atom_t clientList, activeWindow, processId, windowType, state, skipTaskbar;
  std::array<xcb_atom_t, typeNames.size()> types;
};

// Here and below all requests of a kind are sent before the first answer is waited for: one round trip for all of them.
Atoms internAtoms(xcb_connection_t* connection) {
  std::vector<xcb_intern_atom_cookie_t> cookies;
  const auto request = [&](std::string_view name) { cookies.push_back(requestAtom(connection, name)); };
  std::ranges::for_each(propertyNames, request);
  std::ranges::for_each(typeNames, request, &TypeName::name);

  std::array<xcb_atom_t, propertyNames.size() + typeNames.size()> atoms{};
  std::ranges::transform(cookies, atoms.begin(), [connection](auto cookie) { return atomOf(connection, cookie); });
  Atoms named{atoms[0], atoms[1], atoms[2], atoms[3], atoms[4], atoms[5], {}};
  std::ranges::copy(std::span(atoms).subspan<propertyNames.size()>(), named.types.begin());
  return named;
}

/// The 32-bit numbers of a property; none when it is missing or of another format.
std::span<const std::uint32_t> numbersOf(const Property& property) {
  if (!property || property->format != 32) return {};
  const auto* const first = static_cast<const std::uint32_t*>(xcb_get_property_value(property.get()));
  return {first, static_cast<std::size_t>(xcb_get_property_value_length(property.get())) / sizeof(std::uint32_t)};
}

std::string_view textOf(const Property& property) {
  if (!property || property->format != 8) return {};
  return {static_cast<const char*>(xcb_get_property_value(property.get())),
          static_cast<std::size_t>(xcb_get_property_value_length(property.get()))};
}

/// Reads properties over one connection.
class WindowReader {
 public:
  WindowReader(xcb_connection_t* connection, xcb_window_t root)
      : connection_(connection), root_(root), atoms_(internAtoms(connection)) {}

  [[nodiscard]] std::optional<WindowsReading> read() const {
    const auto listRequest = request(root_, atoms_.clientList, XCB_ATOM_WINDOW, mostWindows);
    const auto activeRequest = request(root_, atoms_.activeWindow, XCB_ATOM_WINDOW, 1);
    const auto list = answer(listRequest);
    const auto active = answer(activeRequest);
    // An empty list has its type all the same.
    if (!list || list->type != XCB_ATOM_WINDOW) return std::nullopt;

    WindowsReading reading{.managed = readAll(numbersOf(list)), .active = std::nullopt};
    const auto inFront = numbersOf(active);
    if (!inFront.empty() && inFront.front() != XCB_WINDOW_NONE) {
      reading.active = answerWindow(requestWindow(inFront.front()));
    }
    return reading;
  }

 private:
  static constexpr std::uint32_t mostWindows = 1024;

  struct Requests {
    xcb_get_property_cookie_t windowClass, processId, types, states;
  };

  [[nodiscard]] xcb_get_property_cookie_t request(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                                                  std::uint32_t words) const {
    return xcb_get_property(connection_, 0, window, property, type, 0, words);
  }

  [[nodiscard]] Property answer(xcb_get_property_cookie_t cookie) const {
    return Property(xcb_get_property_reply(connection_, cookie, nullptr));
  }

  [[nodiscard]] Requests requestWindow(xcb_window_t window) const {
    constexpr std::uint32_t enough = 256;
    return {.windowClass = request(window, XCB_ATOM_WM_CLASS, XCB_GET_PROPERTY_TYPE_ANY, enough),
            .processId = request(window, atoms_.processId, XCB_ATOM_CARDINAL, 1),
            .types = request(window, atoms_.windowType, XCB_ATOM_ATOM, enough),
            .states = request(window, atoms_.state, XCB_ATOM_ATOM, enough)};
  }

  /// Absent for a window that is gone: an existing one answers, if only that it has no such property.
  [[nodiscard]] std::optional<DesktopWindow> answerWindow(const Requests& requests) const {
    const auto windowClass = answer(requests.windowClass);
    const auto processId = answer(requests.processId);
    const auto types = answer(requests.types);
    const auto states = answer(requests.states);
    if (!windowClass || !processId || !types || !states) return std::nullopt;

    DesktopWindow window;
    setWindowClass(window, textOf(windowClass));
    if (const auto numbers = numbersOf(processId); !numbers.empty()) window.processId = numbers.front();
    for (const auto atom : numbersOf(types)) window.types.push_back(typeOf(atom));
    window.skipTaskbar = std::ranges::count(numbersOf(states), atoms_.skipTaskbar) > 0;
    return window;
  }

  [[nodiscard]] std::vector<DesktopWindow> readAll(std::span<const xcb_window_t> windows) const {
    std::vector<Requests> requests;
    for (const auto window : windows) requests.push_back(requestWindow(window));
    std::vector<DesktopWindow> read;
    for (const auto& sent : requests) {
      if (auto window = answerWindow(sent)) read.push_back(std::move(*window));
    }
    return read;
  }

  [[nodiscard]] WindowType typeOf(xcb_atom_t atom) const {
    for (std::size_t i = 0; i < typeNames.size(); ++i) {
      if (atoms_.types[i] == atom) return typeNames[i].type;
    }
    return WindowType::unknown;
  }

  xcb_connection_t* connection_;
  xcb_window_t root_;
  Atoms atoms_;
};

}  // namespace

bool isLocalDisplay(const std::string& display) {
  // A path is that of the display's socket.
  if (display.starts_with('/')) return true;
  char* host = nullptr;
  int number = 0;
  // The library would take the variable DISPLAY in place of an empty name.
  if (display.empty() || xcb_parse_display(display.c_str(), &host, &number, nullptr) == 0) return false;
  const XReply<char> owner(host);
  const std::string_view name = host;
  return name.empty() || name == "unix";
}

std::optional<WindowsReading> readWindows(const std::string& display) {
  const XDisplay connection = connectTo(display);
  if (!connection) return std::nullopt;
  const auto root = rootOf(connection.get(), connection.screen);
  if (!root) return std::nullopt;
  auto reading = WindowReader(connection.get(), *root).read();
  // A server that went away in the middle leaves a part of the answers.
  return xcb_connection_has_error(connection.get()) == 0 ? std::move(reading) : std::nullopt;
}

}  // namespace quibbly::linux_services
