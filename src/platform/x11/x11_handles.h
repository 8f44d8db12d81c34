#pragma once

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
[[nodiscard]] XDisplay connectTo(const std::string& display);

/// The screen that a display's name ends in; null names that of the environment.
[[nodiscard]] int screenOf(const char* display);
/// Absent when the display has no such screen.
[[nodiscard]] std::optional<xcb_window_t> rootOf(xcb_connection_t* connection, int screen);

/// To be answered by `atomOf`, which waits; several can be asked for before.
[[nodiscard]] xcb_intern_atom_cookie_t requestAtom(xcb_connection_t* connection, std::string_view name);
[[nodiscard]] xcb_atom_t atomOf(xcb_connection_t* connection, xcb_intern_atom_cookie_t request);

}  // namespace quibbly::x11
