#pragma once

#include <string_view>

namespace quibbly {

/// Opens things with the program that is there for them. Main thread.
class Workspace {
 public:
  virtual ~Workspace() = default;
  /// Whether a program was started for the URL; what becomes of it is not waited for.
  [[nodiscard]] virtual bool openURL(std::string_view url) = 0;
};

}  // namespace quibbly
