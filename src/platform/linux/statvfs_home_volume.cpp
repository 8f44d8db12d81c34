#include "platform/linux/statvfs_home_volume.h"

#include <cerrno>
#include <cstdint>
#include <utility>

namespace quibbly::linux_services {
namespace {

std::optional<std::uint64_t> bytes(std::uint64_t blocks, std::uint64_t blockSize) {
  std::uint64_t product = 0;
  if (__builtin_mul_overflow(blocks, blockSize, &product)) return std::nullopt;
  return product;
}

}  // namespace

VolumeCapacity volumeCapacity(const struct statvfs& volume) {
  if (volume.f_blocks == 0) return {};
  VolumeCapacity capacity{.availableBytes = std::nullopt, .totalBytes = bytes(volume.f_blocks, volume.f_frsize)};
  if (volume.f_bavail <= volume.f_blocks) capacity.availableBytes = bytes(volume.f_bavail, volume.f_frsize);
  return capacity;
}

StatvfsHomeVolume::StatvfsHomeVolume(std::filesystem::path directory) : directory_(std::move(directory)) {}

std::optional<VolumeCapacity> StatvfsHomeVolume::capacity() {
  struct statvfs volume{};
  while (::statvfs(directory_.c_str(), &volume) != 0) {
    if (errno != EINTR) return std::nullopt;
  }
  return volumeCapacity(volume);
}

}  // namespace quibbly::linux_services
