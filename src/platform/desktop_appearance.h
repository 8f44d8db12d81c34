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
  /// Calls back on later turns of the main queue: as soon as the desktop says what is preferred, and whenever that may be
  /// something else; not at all where no desktop says anything. Absent: no preference. To be called once.
  virtual void observe(std::function<void(std::optional<Appearance>)> changed) = 0;
};

}  // namespace quibbly
