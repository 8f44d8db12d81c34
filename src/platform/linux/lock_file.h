#pragma once

#include <filesystem>
#include <utility>

#include "platform/linux/file_descriptor.h"

namespace quibbly::linux_services {

/// A file that one process at a time holds; the kernel takes it back from a process that ends in whatever way.
class LockFile {
 public:
  explicit LockFile(std::filesystem::path path) : path_(std::move(path)) {}

  /// Takes the file, for as long as this object is there, and makes it and its directory where they are missing. False when
  /// another process holds it; true also where there can be no such file of the user's own.
  [[nodiscard]] bool take();

 private:
  std::filesystem::path path_;
  FileDescriptor file_{-1};
};

}  // namespace quibbly::linux_services
