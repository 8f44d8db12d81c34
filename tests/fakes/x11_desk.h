#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "fakes/until.h"
#include "platform/x11/x11_handles.h"

namespace quibbly::fakes {

/// A tray on an X display, as freedesktop.org's System Tray Protocol has it, in the upper right corner, which takes in one
/// icon; and the hands of whoever sits before the display.
class X11Desk {
 public:
  static constexpr int side = 24;

  explicit X11Desk(const std::string& display) : display_(x11::connectTo(display)) {
    const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(get())).data;
    root_ = screen->root;
    width_ = screen->width_in_pixels;
    height_ = screen->height_in_pixels;
    selection_ = atom("_NET_SYSTEM_TRAY_S0");
    opcode_ = atom("_NET_SYSTEM_TRAY_OPCODE");
  }

  /// From now on there is a tray.
  void appear() {
    window_ = xcb_generate_id(get());
    const std::uint32_t values[] = {1, XCB_EVENT_MASK_STRUCTURE_NOTIFY};
    xcb_create_window(get(), XCB_COPY_FROM_PARENT, window_, root_, static_cast<std::int16_t>(width_ - side), 0, side,
                      side, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(get(), window_);
    xcb_set_selection_owner(get(), window_, selection_, XCB_CURRENT_TIME);
    send(root_, XCB_EVENT_MASK_STRUCTURE_NOTIFY, atom("MANAGER"), {XCB_CURRENT_TIME, selection_, window_, 0, 0}, root_);
  }
  /// As when the program that holds it ends.
  void vanish() {
    if (icon_) xcb_reparent_window(get(), *icon_, root_, 0, 0);
    icon_.reset();
    xcb_destroy_window(get(), window_);
    xcb_flush(get());
  }

  /// Takes in whoever asked for it. Whether an icon is docked.
  bool serve() {
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(get())}) {
      if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE) continue;
      const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
      if (message.type != opcode_ || message.data.data32[1] != 0) continue;
      icon_ = message.data.data32[2];
      const std::uint32_t size[] = {side, side};
      xcb_configure_window(get(), *icon_, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
      xcb_reparent_window(get(), *icon_, window_, 0, 0);
      xcb_map_window(get(), *icon_);
      xcb_flush(get());
    }
    return icon_.has_value();
  }

  /// Presses and releases the left button in the middle of the icon.
  void click() {
    xcb_button_press_event_t event{};
    event.detail = XCB_BUTTON_INDEX_1;
    event.time = now();  // two of the same time would be a double click
    event.root = root_;
    event.event = *icon_;
    event.event_x = event.event_y = side / 2;
    event.root_x = static_cast<std::int16_t>(width_ - side / 2);
    event.root_y = side / 2;
    event.same_screen = 1;
    for (const auto& [type, buttons] : {std::pair{XCB_BUTTON_PRESS, 0}, {XCB_BUTTON_RELEASE, XCB_BUTTON_MASK_1}}) {
      event.response_type = static_cast<std::uint8_t>(type);
      event.state = static_cast<std::uint16_t>(buttons);
      xcb_send_event(get(), 0, *icon_, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
    }
    xcb_flush(get());
  }

  /// Clicks, unless it is shown, and again where that did nothing: a click that comes at once after the panel was closed is
  /// taken for the one that closed it.
  bool clickUntilShown(std::string_view title) {
    return actUntilShown(title, [this] { click(); });
  }
  /// Opens a window by its key, with the control key, in the panel that the icon opens; and again where the panel lost the
  /// keyboard before, to a window that came up late.
  bool openByKey(std::string_view panel, xcb_keysym_t key, std::string_view title) {
    return actUntilShown(title, [&] {
      if (clickUntilShown(panel)) press(panel, key, true);
    });
  }

  /// Opens a window that fills the screen, as one for films does. Whether the window manager let it.
  bool openFilm() {
    constexpr std::string_view title = "Film";
    const auto film = xcb_generate_id(get());
    xcb_create_window(get(), XCB_COPY_FROM_PARENT, film, root_, 0, 0, 100, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    const xcb_atom_t fullScreen = atom("_NET_WM_STATE_FULLSCREEN");
    xcb_change_property(get(), XCB_PROP_MODE_REPLACE, film, atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 32, 1, &fullScreen);
    xcb_change_property(get(), XCB_PROP_MODE_REPLACE, film, atom("_NET_WM_NAME"), atom("UTF8_STRING"), 8, title.size(),
                        title.data());
    // A manager that is starting may not hear it at first.
    return until([&] {
      xcb_map_window(get(), film);
      xcb_flush(get());
      return isOnTop(title);
    });
  }
  /// Whether nothing covers the middle of a window.
  [[nodiscard]] bool isOnTop(std::string_view title) const {
    const auto window = windowOf(title, root_);
    if (!window) return false;
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(get(), xcb_get_geometry(get(), *window), nullptr));
    if (!size) return false;
    const auto request = xcb_translate_coordinates(get(), *window, root_, static_cast<std::int16_t>(size->width / 2),
                                                   static_cast<std::int16_t>(size->height / 2));
    const Reply<xcb_translate_coordinates_reply_t> middle(xcb_translate_coordinates_reply(get(), request, nullptr));
    return middle && (middle->child == *window || windowOf(title, middle->child) == window);
  }

  /// Whether a window of this title is on the screen.
  [[nodiscard]] bool shows(std::string_view title) const { return windowOf(title, root_).has_value(); }

  /// Presses and releases a key in a window, with the control key held down when that is asked for. Keys are those of
  /// keysymdef.h.
  void press(std::string_view title, xcb_keysym_t key, bool control) {
    const auto window = windowOf(title, root_);
    if (!window) return;
    // There may be no window manager to give it the keyboard.
    xcb_set_input_focus(get(), XCB_INPUT_FOCUS_PARENT, *window, XCB_CURRENT_TIME);
    xcb_key_press_event_t event{};
    event.detail = codeOf(key);
    event.root = root_;
    event.event = *window;
    event.state = control ? XCB_MOD_MASK_CONTROL : 0;
    event.same_screen = 1;
    for (const int type : {XCB_KEY_PRESS, XCB_KEY_RELEASE}) {
      event.response_type = static_cast<std::uint8_t>(type);
      xcb_send_event(get(), 0, *window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
    }
    xcb_flush(get());
  }

  /// Whether a window says of itself, or its manager says, that it has a state (Extended Window Manager Hints,
  /// "_NET_WM_STATE").
  [[nodiscard]] bool hasState(std::string_view title, std::string_view state) const {
    const auto window = windowOf(title, root_);
    if (!window) return false;
    const auto request = xcb_get_property(get(), 0, *window, atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 0, 64);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(get(), request, nullptr));
    if (!reply) return false;
    const std::span states(static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get())),
                           static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) / sizeof(xcb_atom_t));
    return std::ranges::find(states, atom(state)) != states.end();
  }
  /// Closes a window as the button in its frame does.
  void close(std::string_view title) {
    if (const auto window = windowOf(title, root_)) {
      send(root_, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY, atom("_NET_CLOSE_WINDOW"),
           {XCB_CURRENT_TIME, 2, 0, 0, 0}, *window);
    }
  }
  /// Whether there is a window manager.
  [[nodiscard]] bool isManaged() const {
    const auto request = xcb_get_property(get(), 0, root_, atom("_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW, 0, 1);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(get(), request, nullptr));
    return reply && xcb_get_property_value_length(reply.get()) > 0;
  }

  /// The colour of one pixel of the screen.
  [[nodiscard]] std::uint32_t pixel(int x, int y) const {
    const auto request = xcb_get_image(get(), XCB_IMAGE_FORMAT_Z_PIXMAP, root_, static_cast<std::int16_t>(x),
                                       static_cast<std::int16_t>(y), 1, 1, 0xffffff);
    const Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(get(), request, nullptr));
    return reply ? *reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(reply.get())) & 0xffffff : 0;
  }
  [[nodiscard]] int width() const { return width_; }
  [[nodiscard]] int height() const { return height_; }

 private:
  template <typename Act>
  bool actUntilShown(std::string_view title, const Act& act) const {
    constexpr auto patience = std::chrono::milliseconds(700);
    return until([&] {
      if (shows(title)) return true;
      act();
      const auto enough = std::chrono::steady_clock::now() + patience;
      until([&] { return shows(title) || std::chrono::steady_clock::now() > enough; });
      return shows(title);
    });
  }

  template <typename T>
  using Reply = x11::XReply<T>;

  /// As the display counts: in milliseconds.
  static xcb_timestamp_t now() {
    const auto sinceBoot = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<xcb_timestamp_t>(std::chrono::duration_cast<std::chrono::milliseconds>(sinceBoot).count());
  }

  [[nodiscard]] xcb_connection_t* get() const { return display_.get(); }

  [[nodiscard]] xcb_atom_t atom(std::string_view name) const {
    return x11::atomOf(get(), x11::requestAtom(get(), name));
  }

  [[nodiscard]] std::string titleOf(xcb_window_t window) const {
    const auto request = xcb_get_property(get(), 0, window, atom("_NET_WM_NAME"), XCB_GET_PROPERTY_TYPE_ANY, 0, 64);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(get(), request, nullptr));
    if (!reply) return "";
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
  }

  [[nodiscard]] bool isViewable(xcb_window_t window) const {
    const Reply<xcb_get_window_attributes_reply_t> reply(
        xcb_get_window_attributes_reply(get(), xcb_get_window_attributes(get(), window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
  }

  [[nodiscard]] std::optional<xcb_window_t> windowOf(std::string_view title, xcb_window_t below) const {
    const Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(get(), xcb_query_tree(get(), below), nullptr));
    if (!tree) return std::nullopt;
    const std::span children(xcb_query_tree_children(tree.get()),
                             static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
    for (const xcb_window_t child : children) {
      if (child == window_) continue;  // the icon has a title too
      if (titleOf(child) == title && isViewable(child)) return child;
      if (const auto found = windowOf(title, child)) return found;
    }
    return std::nullopt;
  }

  [[nodiscard]] xcb_keycode_t codeOf(xcb_keysym_t key) const {
    const xcb_setup_t* const setup = xcb_get_setup(get());
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const Reply<xcb_get_keyboard_mapping_reply_t> map(
        xcb_get_keyboard_mapping_reply(get(), xcb_get_keyboard_mapping(get(), setup->min_keycode, count), nullptr));
    if (!map) return 0;
    const std::span keys(xcb_get_keyboard_mapping_keysyms(map.get()), std::size_t{count} * map->keysyms_per_keycode);
    const auto place = std::ranges::find(keys, key) - keys.begin();
    return static_cast<xcb_keycode_t>(setup->min_keycode + place / map->keysyms_per_keycode);
  }

  void send(xcb_window_t to, std::uint32_t mask, xcb_atom_t type, const std::uint32_t (&words)[5], xcb_window_t about) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = about;
    message.type = type;
    for (int i = 0; i < 5; ++i) message.data.data32[i] = words[i];
    xcb_send_event(get(), 0, to, mask, reinterpret_cast<const char*>(&message));
    xcb_flush(get());
  }

  x11::XDisplay display_;
  xcb_window_t root_ = XCB_WINDOW_NONE;
  xcb_window_t window_ = XCB_WINDOW_NONE;
  xcb_atom_t selection_ = XCB_ATOM_NONE;
  xcb_atom_t opcode_ = XCB_ATOM_NONE;
  int width_ = 0;
  int height_ = 0;
  std::optional<xcb_window_t> icon_;
};

}  // namespace quibbly::fakes
