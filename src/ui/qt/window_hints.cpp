#include "ui/qt/window_hints.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <string>

#include <QGuiApplication>
#include <QTransform>
#include <QWidget>
#include <QWindow>
#include <xcb/shape.h>

#include "platform/x11/x11_handles.h"

namespace quibbly::window_hints {
namespace {

using namespace x11;

enum Name : std::uint8_t { compositor, activeWindow, state, skipTaskbar };

/// The X display that Qt is connected to.
class QtDisplay {
 public:
  /// Null where Qt's display is none of X. Qt has the same one as long as the program runs.
  [[nodiscard]] static const QtDisplay* current() {
    static const std::unique_ptr<const QtDisplay> display = connect();
    return display.get();
  }

  explicit QtDisplay(xcb_connection_t* connection) : connection_(connection) {
    const int screen = screenOf(nullptr);
    root_ = rootOf(connection, screen).value_or(XCB_WINDOW_NONE);
    // In the order of their names.
    const auto names = std::to_array<std::string>(
        {"_NET_WM_CM_S" + std::to_string(screen), "_NET_ACTIVE_WINDOW", "_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR"});
    std::array<xcb_intern_atom_cookie_t, names.size()> requests{};
    std::ranges::transform(names, requests.begin(), [&](const auto& name) { return requestAtom(connection, name); });
    std::ranges::transform(requests, atoms_.begin(), [&](auto request) { return atomOf(connection, request); });
  }

  [[nodiscard]] xcb_atom_t atom(Name name) const { return atoms_.at(name); }

  [[nodiscard]] bool isOwned(xcb_atom_t selection) const {
    const auto request = xcb_get_selection_owner(connection_, selection);
    const XReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(connection_, request, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
  }

  void append(const QWidget& window, xcb_atom_t property, xcb_atom_t value) const {
    xcb_change_property(connection_, XCB_PROP_MODE_APPEND, idOf(window), property, XCB_ATOM_ATOM, 32, 1, &value);
  }

  void setInputArea(const QWidget& window, const QRect& part) const {
    // The display counts in pixels.
    const QRect pixels = QTransform::fromScale(window.devicePixelRatio(), window.devicePixelRatio()).mapRect(part);
    const xcb_rectangle_t area{.x = static_cast<std::int16_t>(pixels.x()),
                               .y = static_cast<std::int16_t>(pixels.y()),
                               .width = static_cast<std::uint16_t>(pixels.width()),
                               .height = static_cast<std::uint16_t>(pixels.height())};
    xcb_shape_rectangles(connection_, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, idOf(window), 0,
                         0, 1, &area);
  }

  /// Asks the window manager for something (Extended Window Manager Hints, "Root Window Properties").
  void ask(const QWidget& window, xcb_atom_t wish, const std::array<std::uint32_t, 5>& words) const {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = idOf(window);
    message.type = wish;
    std::ranges::copy(words, std::begin(message.data.data32));
    std::array<char, 32> event{};
    static_assert(sizeof message == sizeof event);
    std::memcpy(event.data(), &message, sizeof message);
    xcb_send_event(connection_, 0, root_, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   event.data());
    xcb_flush(connection_);
  }

 private:
  static std::unique_ptr<const QtDisplay> connect() {
    auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    auto* const connection = x11 != nullptr ? x11->connection() : nullptr;
    return connection != nullptr ? std::make_unique<const QtDisplay>(connection) : nullptr;
  }

  /// Makes the window, if it is none of the display's yet.
  static xcb_window_t idOf(const QWidget& window) { return static_cast<xcb_window_t>(window.winId()); }

  xcb_connection_t* connection_;
  xcb_window_t root_ = XCB_WINDOW_NONE;
  std::array<xcb_atom_t, skipTaskbar + 1> atoms_{};
};

constexpr std::uint32_t ofAnApplication = 1;
constexpr std::uint32_t ofTheUser = 2;

}  // namespace

Surface surface() {
  const QtDisplay* const display = QtDisplay::current();
  const bool isComposited = display == nullptr || display->isOwned(display->atom(compositor));
  return isComposited ? Surface::translucent : Surface::opaque;
}

void setInTaskbar(QWidget& window, bool isListed) {
  const QtDisplay* const display = QtDisplay::current();
  if (display == nullptr) return;
  if (window.isVisible() && window.windowHandle() != nullptr && window.windowHandle()->isVisible()) {
    display->ask(window, display->atom(state),
                 {isListed ? 0U : 1U, display->atom(skipTaskbar), XCB_ATOM_NONE, ofAnApplication, 0});
  } else if (!isListed) {
    display->append(window, display->atom(state), display->atom(skipTaskbar));
  }
}

void takeMouseOnlyIn(QWidget& window, const QRect& part) {
  if (const QtDisplay* const display = QtDisplay::current()) display->setInputArea(window, part);
}

void bringForward(QWidget& window) {
  window.raise();
  window.activateWindow();
  if (const QtDisplay* const display = QtDisplay::current()) {
    display->ask(window, display->atom(activeWindow), {ofTheUser, XCB_CURRENT_TIME, 0, 0, 0});
  }
}

}  // namespace quibbly::window_hints
