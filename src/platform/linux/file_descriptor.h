#pragma once

#include <unistd.h>
#include <utility>

namespace quibbly::linux_services {

/// Owns an open file descriptor, or none (a negative number).
class FileDescriptor {
 public:
  explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
  FileDescriptor(FileDescriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  ~FileDescriptor() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }

  /// Closes it now; false when what was written may be lost, which some volumes tell only then.
  [[nodiscard]] bool close() { return ::close(std::exchange(descriptor_, -1)) == 0; }

  [[nodiscard]] int get() const { return descriptor_; }
  explicit operator bool() const { return descriptor_ >= 0; }

 private:
  int descriptor_;
};

}  // namespace quibbly::linux_services
