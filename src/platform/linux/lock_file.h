#pragma once

#include <filesystem>

#include "platform/linux/file_descriptor.h"

namespace quibbly::linux_services {

/// A file that one process at a time holds; the kernel takes it back from a process that ends in whatever way.
class LockFile {
 public:
  explicit LockFile(std::filesystem::path path) : path_(std::move(path)) {}

  /// Whether another process holds the file. Where no file can be made nobody holds it.
  [[nodiscard]] bool heldElsewhere();

 private:
  std::filesystem::path path_;
  FileDescriptor file_{-1};
};

}  // namespace quibbly::linux_services
