#pragma once

#include <functional>
#include <optional>

namespace quibbly {

/// Whether things are dark on light, or light on dark.
enum class Appearance { light, dark };

/// What the user prefers for the whole desktop. Main thread.
class DesktopAppearance {
 public:
  virtual ~DesktopAppearance() = default;
  /// Calls back on later turns of the main queue: soon, and whenever the preference is another. Absent when the desktop
  /// does not say. Once.
  virtual void observe(std::function<void(std::optional<Appearance>)> changed) = 0;
};

}  // namespace quibbly
