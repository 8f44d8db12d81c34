#pragma once

#include <cstdint>
#include <optional>

namespace quibbly {

/// Sizes of a volume, bytes; each absent when the volume does not tell it.
struct VolumeCapacity {
  /// What the user may still write.
  std::optional<std::uint64_t> availableBytes;
  std::optional<std::uint64_t> totalBytes;

  bool operator==(const VolumeCapacity&) const = default;
};

/// The volume that holds the user's home directory; asked on the monitor's thread.
class HomeVolume {
 public:
  virtual ~HomeVolume() = default;
  /// Absent when the query fails.
  [[nodiscard]] virtual std::optional<VolumeCapacity> capacity() = 0;
};

}  // namespace quibbly
