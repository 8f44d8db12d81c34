#pragma once

#include <string_view>

namespace quibbly {

/// What the user pastes from. Nobody hears whether the desktop took it. Main thread.
class Pasteboard {
 public:
  virtual ~Pasteboard() = default;
  virtual void clear() = 0;
  /// UTF-8.
  virtual void setText(std::string_view text) = 0;
};

}  // namespace quibbly
