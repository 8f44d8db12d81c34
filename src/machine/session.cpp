#include "machine/session.h"

#include "platform/linux/dbus_cross_process_center.h"
#include "platform/linux/dbus_widget_center.h"
#include "platform/linux/session_bus.h"

namespace quibbly {

using namespace linux_services;

struct Session::Services {
  explicit Services(MainQueue& queue) : bus(queue) {}

  SessionBus bus;
  DBusWidgetCenter widgets{bus};
  DBusCrossProcessCenter crossProcess{bus};
};

Session::Session(MainQueue& queue) : services_(std::make_unique<Services>(queue)) {}
Session::~Session() = default;

WidgetCenter& Session::widgets() { return services_->widgets; }
CrossProcessCenter& Session::crossProcess() { return services_->crossProcess; }

}  // namespace quibbly
