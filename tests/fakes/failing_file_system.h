#pragma once

#include "fakes/faults.h"
#include "platform/file_system.h"

namespace quibbly::fakes {

/// A file system whose calls fail without doing anything, but for a write, which leaves half of the content as a full disk
/// does.
class FailingFileSystem final : public FileSystem, public Faults {
 public:
  explicit FailingFileSystem(FileSystem& real, const Faults* common = nullptr) : Faults(common), real_(real) {}

  [[nodiscard]] std::error_code createDirectories(const std::filesystem::path& directory) override {
    return fails() ? failure() : real_.createDirectories(directory);
  }
  [[nodiscard]] std::expected<std::string, std::error_code> read(const std::filesystem::path& file) override {
    if (fails()) return std::unexpected(failure());
    return real_.read(file);
  }
  [[nodiscard]] std::error_code writeNew(const std::filesystem::path& file, std::string_view content) override {
    if (!fails()) return real_.writeNew(file, content);
    const std::error_code half = real_.writeNew(file, content.substr(0, content.size() / 2));
    return half ? half : failure();
  }
  [[nodiscard]] std::error_code replace(const std::filesystem::path& file, const std::filesystem::path& with) override {
    return fails() ? failure() : real_.replace(file, with);
  }
  [[nodiscard]] std::error_code remove(const std::filesystem::path& file) override {
    return fails() ? failure() : real_.remove(file);
  }

  static std::error_code failure() { return std::make_error_code(std::errc::io_error); }

 private:
  FileSystem& real_;
};

}  // namespace quibbly::fakes
