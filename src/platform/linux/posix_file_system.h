#pragma once

#include "platform/file_system.h"

namespace quibbly::linux_services {

/// Files are written without a disk flush: what a crash of the machine loses is a joke. New files have mode 0600, new
/// directories 0700.
class PosixFileSystem final : public FileSystem {
 public:
  [[nodiscard]] std::error_code createDirectories(const std::filesystem::path& directory) override;
  [[nodiscard]] std::expected<std::string, std::error_code> read(const std::filesystem::path& file) override;
  [[nodiscard]] std::error_code writeNew(const std::filesystem::path& file, std::string_view content) override;
  [[nodiscard]] std::error_code replace(const std::filesystem::path& file, const std::filesystem::path& with) override;
  [[nodiscard]] std::error_code remove(const std::filesystem::path& file) override;
};

}  // namespace quibbly::linux_services
