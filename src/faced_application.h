#pragma once

#include <string>
#include <vector>

#include "app/app_delegate.h"

namespace quibbly {

/// The application with the face that it was started with. Main thread.
class FacedApplication {
 public:
  virtual ~FacedApplication() = default;
  /// Launches the model and opens the URLs.
  virtual void start(const std::vector<std::string>& urls) = 0;
  /// The user started the program again.
  virtual void reopen() = 0;
  [[nodiscard]] virtual AppDelegate& delegate() = 0;
};

}  // namespace quibbly
