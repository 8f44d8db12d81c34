#pragma once

#include <map>
#include <utility>

#include "platform/file_system.h"

namespace quibbly::fuzz {

/// Files that are quicker made than those of a disk.
class MemoryFiles final : public FileSystem {
 public:
  [[nodiscard]] std::error_code createDirectories(const std::filesystem::path& /*directory*/) override { return {}; }
  [[nodiscard]] std::expected<std::string, std::error_code> read(const std::filesystem::path& file) override {
    const auto found = files_.find(file);
    if (found == files_.end()) return std::unexpected(missing());
    return found->second;
  }
  [[nodiscard]] std::error_code writeNew(const std::filesystem::path& file, std::string_view content) override {
    return files_.try_emplace(file, content).second ? std::error_code() : std::make_error_code(std::errc::file_exists);
  }
  [[nodiscard]] std::error_code replace(const std::filesystem::path& file, const std::filesystem::path& with) override {
    auto moved = files_.extract(with);
    if (!moved) return missing();
    files_.insert_or_assign(file, std::move(moved.mapped()));
    return {};
  }
  [[nodiscard]] std::error_code remove(const std::filesystem::path& file) override {
    return files_.erase(file) == 1 ? std::error_code() : missing();
  }

 private:
  static std::error_code missing() { return std::make_error_code(std::errc::no_such_file_or_directory); }

  std::map<std::filesystem::path, std::string> files_;
};

}  // namespace quibbly::fuzz
