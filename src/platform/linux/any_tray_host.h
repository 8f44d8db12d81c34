#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/lifetime.h"
#include "platform/linux/session_bus.h"
#include "platform/linux/x11_tray_selection.h"
#include "platform/tray_host.h"

namespace quibbly::linux_services {

/// A host of StatusNotifierItems on the session bus, or the owner of the tray's selection on an X display (freedesktop.org's
/// System Tray Protocol), whichever comes first. Main thread.
class AnyTrayHost final : public TrayHost {
 public:
  /// A display that is not there has no hosts.
  AnyTrayHost(MainQueue& queue, SessionBus& bus, std::string display);
  AnyTrayHost(const AnyTrayHost&) = delete;
  AnyTrayHost& operator=(const AnyTrayHost&) = delete;
  ~AnyTrayHost() override;

  void await(std::function<void()> appeared) override;

 private:
  void askWatcher();
  void found();

  MainQueue& queue_;
  SessionBus& bus_;
  std::string display_;
  std::function<void()> appeared_;
  std::vector<SessionBus::AttachmentId> subscriptions_;
  std::unique_ptr<X11TraySelection> selection_;
  Lifetime lifetime_;
};

}  // namespace quibbly::linux_services
