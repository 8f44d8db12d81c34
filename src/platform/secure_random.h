#pragma once

#include <cstdint>
#include <limits>

namespace quibbly {

/// The operating system's secure random source, in the shape that the distributions of <random> take. Any thread.
class SecureRandom {
 public:
  using result_type = std::uint64_t;

  virtual ~SecureRandom() = default;
  /// 64 fresh random bits.
  [[nodiscard]] virtual result_type operator()() = 0;

  [[nodiscard]] static constexpr result_type min() { return 0; }
  [[nodiscard]] static constexpr result_type max() { return std::numeric_limits<result_type>::max(); }
};

}  // namespace quibbly
