#pragma once

#include <functional>

namespace quibbly {

/// Whoever shows the icons of programs on this desktop: a panel, a dock, a bar. One may come long after the program
/// started. Main thread.
class TrayHost {
 public:
  virtual ~TrayHost() = default;
  /// Calls back once, on a later turn of the main queue, as soon as there is a host; never when none comes. Once.
  virtual void await(std::function<void()> appeared) = 0;
};

}  // namespace quibbly
