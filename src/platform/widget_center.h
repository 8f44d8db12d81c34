#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quibbly {

/// The service that draws widgets. Main thread.
class WidgetCenter {
 public:
  /// The kind of each widget that the user has placed, once a widget; absent when the service does not answer.
  using Configurations = std::optional<std::vector<std::string>>;

  virtual ~WidgetCenter() = default;
  /// Asks for the widgets of a kind to be drawn anew. Nobody hears whether it was done.
  virtual void reloadTimelines(std::string_view kind) = 0;
  virtual void reloadAllTimelines() = 0;
  /// Calls back once, within the service's time limit, on any thread.
  virtual void currentConfigurations(std::function<void(Configurations)> answer) = 0;
};

}  // namespace quibbly
