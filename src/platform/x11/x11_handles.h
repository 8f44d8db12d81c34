#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <xcb/xcb.h>

/// The C library of the X protocol, with owners.
namespace quibbly::x11 {

struct FreeReply {
  // The library hands out memory of the C library's.
  void operator()(void* memory) const { std::free(memory); }  // NOLINT(*-no-malloc,*-owning-memory)
};
template <typename T>
using XReply = std::unique_ptr<T, FreeReply>;
using XConnection = std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)>;

/// A connection of one's own to a display.
struct XDisplay {
  XConnection connection{nullptr, &xcb_disconnect};  // null: none
  /// That which the display's name ends in.
  int screen = 0;

  [[nodiscard]] xcb_connection_t* get() const { return connection.get(); }
  explicit operator bool() const { return connection != nullptr; }
};

/// None when the display has no name or cannot be reached. Waits for the display.
[[nodiscard]] inline XDisplay connectTo(const std::string& display) {
  XDisplay made;
  // The library takes an empty name for that of the environment.
  if (display.empty()) return made;
  made.connection.reset(xcb_connect(display.c_str(), &made.screen));
  if (xcb_connection_has_error(made.get()) != 0) made.connection.reset();
  return made;
}

/// The screen that a display's name ends in; null names that of the environment.
[[nodiscard]] inline int screenOf(const char* display) {
  char* host = nullptr;
  int number = 0;
  int screen = 0;
  if (xcb_parse_display(display, &host, &number, &screen) == 0) return 0;
  const XReply<char> owner(host);
  return screen;
}

[[nodiscard]] inline std::optional<xcb_window_t> rootOf(xcb_connection_t* connection, int screen) {
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
  for (; screens.rem > 0 && screen > 0; --screen) xcb_screen_next(&screens);
  return screens.rem > 0 ? std::optional(screens.data->root) : std::nullopt;
}

/// To be answered by `atomOf`.
[[nodiscard]] inline xcb_intern_atom_cookie_t requestAtom(xcb_connection_t* connection, std::string_view name) {
  return xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
}

[[nodiscard]] inline xcb_atom_t atomOf(xcb_connection_t* connection, xcb_intern_atom_cookie_t request) {
  const XReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, request, nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace quibbly::x11
