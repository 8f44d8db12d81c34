#include "ui/qt/window_hints.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>
#include <string_view>

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>
#include <xcb/xcb.h>

namespace quibbly::window_hints {
namespace {

/// The display that Qt is connected to.
class Display {
 public:
  /// Null where the display is none of X.
  [[nodiscard]] static xcb_connection_t* connection() {
    auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
  }

  explicit Display(xcb_connection_t* connection) : connection_(connection) {}

  [[nodiscard]] xcb_atom_t atom(std::string_view name) const {
    const auto request = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, request, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  }

  [[nodiscard]] bool isOwned(xcb_atom_t selection) const {
    const auto request = xcb_get_selection_owner(connection_, selection);
    const Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(connection_, request, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
  }

  void set(const QWidget& window, xcb_atom_t property, xcb_atom_t type, std::uint32_t value) const {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, idOf(window), property, type, 32, 1, &value);
  }
  void append(const QWidget& window, xcb_atom_t property, xcb_atom_t value) const {
    xcb_change_property(connection_, XCB_PROP_MODE_APPEND, idOf(window), property, XCB_ATOM_ATOM, 32, 1, &value);
  }

  /// Asks the window manager for something (Extended Window Manager Hints, "Root Window Properties").
  void ask(const QWidget& window, std::string_view wish, const std::array<std::uint32_t, 5>& words) const {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = idOf(window);
    message.type = atom(wish);
    std::ranges::copy(words, std::begin(message.data.data32));
    std::array<char, 32> event{};
    static_assert(sizeof message == sizeof event);
    std::memcpy(event.data(), &message, sizeof message);
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    xcb_send_event(connection_, 0, root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   event.data());
    xcb_flush(connection_);
  }

 private:
  struct Free {
    // NOLINTNEXTLINE(*-no-malloc,*-owning-memory): the library hands out memory of the C library's
    void operator()(void* memory) const { std::free(memory); }
  };
  template <typename T>
  using Reply = std::unique_ptr<T, Free>;

  /// Makes the window, if it is none of the display's yet.
  static xcb_window_t idOf(const QWidget& window) { return static_cast<xcb_window_t>(window.winId()); }

  xcb_connection_t* connection_;
};

constexpr std::uint32_t ofAnApplication = 1;
constexpr std::uint32_t ofTheUser = 2;

}  // namespace

bool hasCompositor() {
  auto* const connection = Display::connection();
  if (connection == nullptr) return true;
  const Display display(connection);
  return display.isOwned(display.atom("_NET_WM_CM_S0"));
}

void showOnAllWorkspaces(QWidget& window) {
  auto* const connection = Display::connection();
  if (connection == nullptr) return;
  constexpr std::uint32_t all = 0xFFFFFFFF;
  const Display display(connection);
  display.set(window, display.atom("_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL, all);
  display.append(window, display.atom("_NET_WM_STATE"), display.atom("_NET_WM_STATE_STICKY"));
}

void setInTaskbar(QWidget& window, bool isListed) {
  auto* const connection = Display::connection();
  if (connection == nullptr) return;
  const Display display(connection);
  const xcb_atom_t taskbar = display.atom("_NET_WM_STATE_SKIP_TASKBAR");
  const xcb_atom_t pager = display.atom("_NET_WM_STATE_SKIP_PAGER");
  if (window.isVisible() && window.windowHandle() != nullptr && window.windowHandle()->isVisible()) {
    display.ask(window, "_NET_WM_STATE", {isListed ? 0U : 1U, taskbar, pager, ofAnApplication, 0});
  } else if (!isListed) {
    for (const xcb_atom_t state : {taskbar, pager}) display.append(window, display.atom("_NET_WM_STATE"), state);
  }
}

void bringForward(QWidget& window) {
  window.raise();
  window.activateWindow();
  if (auto* const connection = Display::connection()) {
    Display(connection).ask(window, "_NET_ACTIVE_WINDOW", {ofTheUser, XCB_CURRENT_TIME, 0, 0, 0});
  }
}

}  // namespace quibbly::window_hints
