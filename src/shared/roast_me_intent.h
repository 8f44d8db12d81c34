#pragma once

#include <string_view>

#include "engine/placeholder_roast_engine.h"
#include "platform/task.h"
#include "platform/wall_clock.h"
#include "shared/app_group_store.h"
#include "shared/pending_notify_queue.h"
#include "shared/recent_roasts.h"
#include "shared/widget_reload.h"

namespace quibbly {

/// The action that a widget runs to ask for a roast. It works from the figures that were published last, without the
/// application and without sampling the machine; everything it leaves behind is in the shared container. The application
/// posts the notification later, by its own rules.
class RoastMeIntent {
 public:
  static constexpr std::string_view title = "Roast me";
  static constexpr bool openAppWhenRun = false;

  RoastMeIntent(const RecentRoasts& recentRoasts, AppGroupStore& store, const PlaceholderRoastEngine& engine,
                PendingNotifyQueue& notifications, WidgetReload& widgets, const WallClock& clock)
      : recentRoasts_(recentRoasts),
        store_(store),
        engine_(engine),
        notifications_(notifications),
        widgets_(widgets),
        clock_(clock) {}

  /// Makes, records and publishes a roast, leaves the notification and reloads the widgets five times; ends about 2.75 s
  /// after the publication with the roast. Every failure inside is absorbed.
  [[nodiscard]] Task<LastRoast> perform();

 private:
  [[nodiscard]] Task<> hardReload();

  const RecentRoasts& recentRoasts_;
  AppGroupStore& store_;
  const PlaceholderRoastEngine& engine_;
  PendingNotifyQueue& notifications_;
  WidgetReload& widgets_;
  const WallClock& clock_;
};

}  // namespace quibbly
