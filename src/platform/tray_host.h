#pragma once

#include <functional>

namespace quibbly {

/// Whoever shows the icons of programs on this desktop: a panel, a dock, a bar. One may come long after the program
/// started, and go before it ends. Main thread.
class TrayHost {
 public:
  virtual ~TrayHost() = default;
  /// Calls back on later turns of the main queue: when there is a host, and when it is gone; never while none comes. To be
  /// called once.
  virtual void observe(std::function<void(bool isThere)> changed) = 0;
};

}  // namespace quibbly
