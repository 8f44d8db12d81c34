#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/desktop_appearance.h"
#include "platform/lifetime.h"
#include "platform/linux/session_bus.h"

namespace quibbly::linux_services {

/// The colour scheme of org.freedesktop.portal.Settings, which the portals of all the large desktops have. Main thread.
class PortalAppearance final : public DesktopAppearance {
 public:
  explicit PortalAppearance(SessionBus& bus) : bus_(bus) {}
  PortalAppearance(const PortalAppearance&) = delete;
  PortalAppearance& operator=(const PortalAppearance&) = delete;
  ~PortalAppearance() override;

  void observe(std::function<void(std::optional<Appearance>)> changed) override;

 private:
  void ask(bool mayStartIt = false);

  SessionBus& bus_;
  std::function<void(std::optional<Appearance>)> changed_;
  std::vector<SessionBus::AttachmentId> subscriptions_;
  Lifetime lifetime_;
};

}  // namespace quibbly::linux_services
