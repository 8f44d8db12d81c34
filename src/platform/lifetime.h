#pragma once

#include <memory>
#include <utility>

namespace quibbly {

/// A member of an object that hands out work which needs the object. One thread.
class Lifetime {
 public:
  /// The work, which does nothing any more once this lifetime has ended.
  template <typename Work>
  [[nodiscard]] auto whileItLasts(Work work) const {
    return [alive = std::weak_ptr(alive_), work = std::move(work)](auto&&... arguments) mutable {
      if (!alive.expired()) work(std::forward<decltype(arguments)>(arguments)...);
    };
  }

 private:
  std::shared_ptr<void> alive_ = std::make_shared<char>();
};

}  // namespace quibbly
