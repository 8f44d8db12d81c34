#include "platform/linux/x11_tray_selection.h"

#include <array>
#include <utility>

namespace quibbly::linux_services {
namespace {

constexpr int eventKind = 0x7f;  // without the mark of an event that a client sent

}  // namespace

X11TraySelection::X11TraySelection(MainQueue& queue, const std::string& display, std::function<void()> appeared)
    : queue_(queue), appeared_(std::move(appeared)), connection_(connectTo(display, screen_)) {
  xcb_connection_t* const connection = connection_.get();
  const auto root = connection != nullptr ? rootOf(connection, screen_) : std::nullopt;
  if (!root) {
    connection_.reset();
    return;
  }
  const auto selection = requestAtom(connection, "_NET_SYSTEM_TRAY_S" + std::to_string(screen_));
  const auto manager = requestAtom(connection, "MANAGER");
  // A new owner tells the root window.
  const std::array<std::uint32_t, 1> events{XCB_EVENT_MASK_STRUCTURE_NOTIFY};
  xcb_change_window_attributes(connection, *root, XCB_CW_EVENT_MASK, events.data());
  selection_ = atomOf(connection, selection);
  manager_ = atomOf(connection, manager);
  queue_.watch(xcb_get_file_descriptor(connection), [this] { read(); });
}

X11TraySelection::~X11TraySelection() { close(); }

bool X11TraySelection::hasOwner() const {
  if (!connection_) return false;
  const auto request = xcb_get_selection_owner(connection_.get(), selection_);
  const XReply<xcb_get_selection_owner_reply_t> reply(
      xcb_get_selection_owner_reply(connection_.get(), request, nullptr));
  return reply && reply->owner != XCB_WINDOW_NONE;
}

void X11TraySelection::read() {
  bool hasAppeared = false;
  while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
    if ((event->response_type & eventKind) != XCB_CLIENT_MESSAGE) continue;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): so the protocol's events are read
    const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
    hasAppeared = hasAppeared || (message.type == manager_ && message.data.data32[1] == selection_);
  }
  if (xcb_connection_has_error(connection_.get()) != 0) close();
  if (hasAppeared) appeared_();
}

void X11TraySelection::close() {
  if (!connection_) return;
  queue_.unwatch(xcb_get_file_descriptor(connection_.get()));
  connection_.reset();
}

}  // namespace quibbly::linux_services
