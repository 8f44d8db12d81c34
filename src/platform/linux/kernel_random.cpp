#include "platform/linux/kernel_random.h"

#include <array>
#include <bit>
#include <cerrno>
#include <random>

namespace quibbly::linux_services {
namespace {

SecureRandom::result_type fromRandomDevice() {
  std::random_device device;
  return (SecureRandom::result_type{device()} << 32) | device();
}

}  // namespace

SecureRandom::result_type KernelRandom::operator()() {
  std::array<std::byte, sizeof(result_type)> bits{};
  for (std::size_t filled = 0; filled < bits.size();) {
    const ssize_t got = source_(bits.data() + filled, bits.size() - filled, 0);
    if (got > 0) {
      filled += static_cast<std::size_t>(got);
    } else if (got == 0 || errno != EINTR) {
      return fromRandomDevice();
    }
  }
  return std::bit_cast<result_type>(bits);
}

}  // namespace quibbly::linux_services
