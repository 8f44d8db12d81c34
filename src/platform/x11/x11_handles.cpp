#include "platform/x11/x11_handles.h"

#include <cstdint>

namespace quibbly::x11 {

XDisplay connectTo(const std::string& display) {
  XDisplay made;
  // The library takes an empty name for that of the environment.
  if (display.empty()) return made;
  made.connection.reset(xcb_connect(display.c_str(), &made.screen));
  if (xcb_connection_has_error(made.get()) != 0) made.connection.reset();
  return made;
}

int screenOf(const char* display) {
  char* host = nullptr;
  int number = 0;
  int screen = 0;
  if (xcb_parse_display(display, &host, &number, &screen) == 0) return 0;
  const XReply<char> owner(host);
  return screen;
}

std::optional<xcb_window_t> rootOf(xcb_connection_t* connection, int screen) {
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
  for (; screens.rem > 0 && screen > 0; --screen) xcb_screen_next(&screens);
  return screens.rem > 0 ? std::optional(screens.data->root) : std::nullopt;
}

xcb_intern_atom_cookie_t requestAtom(xcb_connection_t* connection, std::string_view name) {
  return xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
}

xcb_atom_t atomOf(xcb_connection_t* connection, xcb_intern_atom_cookie_t request) {
  const XReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, request, nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace quibbly::x11
