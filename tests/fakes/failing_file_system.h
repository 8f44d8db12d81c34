#pragma once

#include "platform/file_system.h"

namespace quibbly::fakes {

/// A file system whose n-th call, counted from 1, fails without doing anything. 0 lets all calls through.
class FailingFileSystem : public FileSystem {
 public:
  explicit FailingFileSystem(FileSystem& real) : real_(real) {}

  void failCall(int number) {
    calls_ = 0;
    failing_ = number;
  }
  [[nodiscard]] int calls() const { return calls_; }

  [[nodiscard]] std::error_code createDirectories(const std::filesystem::path& directory) override {
    return fails() ? failure() : real_.createDirectories(directory);
  }
  [[nodiscard]] std::expected<std::string, std::error_code> read(const std::filesystem::path& file) override {
    if (fails()) return std::unexpected(failure());
    return real_.read(file);
  }
  [[nodiscard]] std::error_code writeNew(const std::filesystem::path& file, std::string_view content) override {
    return fails() ? failure() : real_.writeNew(file, content);
  }
  [[nodiscard]] std::error_code replace(const std::filesystem::path& file, const std::filesystem::path& with) override {
    return fails() ? failure() : real_.replace(file, with);
  }
  [[nodiscard]] std::error_code remove(const std::filesystem::path& file) override {
    return fails() ? failure() : real_.remove(file);
  }

  static std::error_code failure() { return std::make_error_code(std::errc::io_error); }

 private:
  bool fails() { return ++calls_ == failing_; }

  FileSystem& real_;
  int calls_ = 0;
  int failing_ = 0;
};

}  // namespace quibbly::fakes
