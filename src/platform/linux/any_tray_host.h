#pragma once

#include <memory>
#include <vector>

#include "platform/lifetime.h"
#include "platform/linux/session_bus.h"
#include "platform/linux/x11_tray_selection.h"
#include "platform/tray_host.h"

namespace quibbly::linux_services {

/// A host of StatusNotifierItems on the session bus, or the owner of the tray's selection on an X display (freedesktop.org's
/// System Tray Protocol). An icon goes to the bus if there is a host on it when the icon is made, and stays with the kind of
/// tray that it was made for; so the first that is told of decides which kind counts from then on. Main thread.
class AnyTrayHost final : public TrayHost {
 public:
  /// A display that is not there has no hosts.
  AnyTrayHost(MainQueue& queue, SessionBus& bus, x11::XDisplay display);
  AnyTrayHost(const AnyTrayHost&) = delete;
  AnyTrayHost& operator=(const AnyTrayHost&) = delete;
  ~AnyTrayHost() override;

  void observe(std::function<void(bool isThere)> changed) override;

 private:
  void askWatcher();
  void takeAnswer(sd_bus_message* answer);
  void tell();

  MainQueue& queue_;
  SessionBus& bus_;
  x11::XDisplay display_;  // until it is observed
  std::function<void(bool isThere)> changed_;
  std::vector<SessionBus::AttachmentId> subscriptions_;
  std::unique_ptr<X11TraySelection> selection_;
  bool isOnBus_ = false;
  bool isOnDisplay_ = false;
  bool hasBusAnswered_ = false;
  bool told_ = false;
  bool isSettled_ = false;
  bool isOfBus_ = false;  // once it is settled
  Lifetime lifetime_;
};

}  // namespace quibbly::linux_services
