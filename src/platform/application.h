#pragma once

#include <memory>

#include "platform/activation_policy.h"

namespace quibbly {

/// This program as the desktop sees it. Main thread.
class Application {
 public:
  virtual ~Application() = default;

  /// Nothing changes when it is set already.
  virtual void setActivationPolicy(ActivationPolicy policy) = 0;
  /// The program is regular, whatever policy is set, as long as what this gives lives.
  [[nodiscard]] virtual std::shared_ptr<void> holdRegular() = 0;

  /// Brings the program's windows forward; over those of the program that the user is at only when it ignores others.
  virtual void activate(bool ignoringOtherApps) = 0;
  /// Whether one of the program's windows has the keyboard.
  [[nodiscard]] virtual bool isActive() const = 0;
  /// Takes the program's windows off the screen until `unhide`.
  virtual void hide() = 0;
  virtual void unhide() = 0;

  /// Ends the program after the present turn of the main queue.
  virtual void terminate() = 0;
};

}  // namespace quibbly
