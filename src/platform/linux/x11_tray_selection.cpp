#include "platform/linux/x11_tray_selection.h"

#include <array>
#include <utility>

namespace quibbly::linux_services {

using namespace x11;
namespace {

constexpr int eventKind = 0x7f;  // without the mark of an event that a client sent
constexpr int errorKind = 0;

void tellOfStructure(xcb_connection_t* connection, xcb_window_t window) {
  const std::array<std::uint32_t, 1> events{XCB_EVENT_MASK_STRUCTURE_NOTIFY};
  xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, events.data());
}

}  // namespace

X11TraySelection::X11TraySelection(MainQueue& queue, XDisplay display, std::function<void()> changed)
    : queue_(queue), changed_(std::move(changed)), display_(std::move(display)) {
  xcb_connection_t* const connection = display_.get();
  const auto root = display_ ? rootOf(connection, display_.screen) : std::nullopt;
  if (!root) {
    display_ = {};
    return;
  }
  const auto selection = requestAtom(connection, "_NET_SYSTEM_TRAY_S" + std::to_string(display_.screen));
  const auto manager = requestAtom(connection, "MANAGER");
  selection_ = atomOf(connection, selection);
  manager_ = atomOf(connection, manager);
  // A new owner tells the root window.
  tellOfStructure(connection, *root);
  findOwner();
  queue_.watch(xcb_get_file_descriptor(connection), [this] { read(); });
  // What came together with an answer is read already, and makes nothing readable.
  queue_.post(lifetime_.whileItLasts([this] { read(); }));
}

X11TraySelection::~X11TraySelection() { close(); }

void X11TraySelection::findOwner() {
  const auto request = xcb_get_selection_owner(display_.get(), selection_);
  const XReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(display_.get(), request, nullptr));
  owner_ = reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
  if (hasOwner()) tellOfStructure(display_.get(), owner_);
  xcb_flush(display_.get());
}

void X11TraySelection::read() {
  bool hasChanged = false;
  // Until the last answer has brought nothing with it.
  while (takeEvents()) {
    findOwner();
    hasChanged = true;
  }
  if (!display_) return;
  if (xcb_connection_has_error(display_.get()) != 0) {
    // The program ends with its display.
    close();
  } else if (hasChanged) {
    changed_();
  }
}

/// Whether one of them says that there may be another owner.
bool X11TraySelection::takeEvents() {
  if (!display_) return false;
  bool hasChanged = false;
  while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(display_.get())}) {
    // NOLINTBEGIN(cppcoreguidelines-pro-type-reinterpret-cast): so the protocol's events are read
    switch (event->response_type & eventKind) {
      case XCB_CLIENT_MESSAGE: {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
        hasChanged = hasChanged || (message.type == manager_ && message.data.data32[1] == selection_);
        break;
      }
      case XCB_DESTROY_NOTIFY:
        hasChanged = hasChanged || reinterpret_cast<const xcb_destroy_notify_event_t&>(*event).window == owner_;
        break;
      case errorKind:  // it was gone before its end could be told of
        hasChanged = true;
        break;
      default:
        break;
    }
    // NOLINTEND(cppcoreguidelines-pro-type-reinterpret-cast)
  }
  return hasChanged;
}

void X11TraySelection::close() {
  if (!display_) return;
  queue_.unwatch(xcb_get_file_descriptor(display_.get()));
  display_ = {};
}

}  // namespace quibbly::linux_services
