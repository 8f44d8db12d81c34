#pragma once

#include "platform/linux/session_bus.h"
#include "platform/widget_center.h"

namespace quibbly::linux_services {

/// Widgets are programs of others. They hear of reloads by the signals ReloadTimelines(s kind) and ReloadAllTimelines() of
/// org.quibbly.WidgetCenter1 from /org/quibbly/WidgetCenter, and each owns the bus name KIND.iPID while it is placed.
class DBusWidgetCenter final : public WidgetCenter {
 public:
  explicit DBusWidgetCenter(SessionBus& bus) : bus_(bus) {}

  void reloadTimelines(std::string_view kind) override;
  void reloadAllTimelines() override;
  void currentConfigurations(std::function<void(Configurations)> answer) override;

 private:
  SessionBus& bus_;
};

}  // namespace quibbly::linux_services
