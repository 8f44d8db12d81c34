#pragma once

#include <cstddef>
#include <sys/random.h>
#include <sys/types.h>

#include "platform/secure_random.h"

namespace quibbly::linux_services {

/// Random bits from the kernel; from the standard library's random device should the kernel refuse (a sandbox may forbid
/// the call).
class KernelRandom : public SecureRandom {
 public:
  /// Fills a buffer as getrandom(2) does: the bytes written, or a negative number and errno.
  using Source = ssize_t (*)(void* buffer, std::size_t size, unsigned int flags);

  explicit KernelRandom(Source source = ::getrandom) : source_(source) {}
  [[nodiscard]] result_type operator()() override;

 private:
  Source source_;
};

}  // namespace quibbly::linux_services
