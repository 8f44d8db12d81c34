#pragma once

#include <filesystem>
#include <optional>
#include <sys/statvfs.h>

#include "platform/home_volume.h"

namespace quibbly::linux_services {

/// Sizes from a volume's block counts. What only the superuser may fill is not available. A volume that counts no blocks
/// tells nothing, and more available than there is does not count as an answer.
[[nodiscard]] VolumeCapacity volumeCapacity(const struct statvfs& volume);

/// The volume that holds a directory, asked anew each time. A network volume that hangs makes the caller wait.
class StatvfsHomeVolume : public HomeVolume {
 public:
  explicit StatvfsHomeVolume(std::filesystem::path directory);
  [[nodiscard]] std::optional<VolumeCapacity> capacity() override;

 private:
  std::filesystem::path directory_;
};

}  // namespace quibbly::linux_services
