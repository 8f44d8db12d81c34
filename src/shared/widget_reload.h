#pragma once

#include <optional>
#include <string>

#include "platform/preference_store.h"
#include "platform/task.h"
#include "platform/widget_center.h"

namespace quibbly {

/// Asks for the widgets to be drawn anew, more than once: a widget that was just starting may have missed the first call.
/// Main thread. Must outlive the tasks it makes.
class WidgetReload {
 public:
  WidgetReload(WidgetCenter& center, PreferenceStore& preferences) : center_(center), preferences_(preferences) {}

  /// Every kind, newest first, then all.
  void timelines();

  /// Every placed kind, then all; then `timelines` after 100, 300, 700, 1500 and 3000 ms, each counted from the one
  /// before. Cancelled, it does the rest as soon as the service has told what is placed. The preview does not change what it does.
  [[nodiscard]] Task<> afterRoastPublished(std::optional<std::string> preview);

 private:
  WidgetCenter& center_;
  PreferenceStore& preferences_;
};

}  // namespace quibbly
