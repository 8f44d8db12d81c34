#pragma once

#include <expected>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace quibbly {

/// The file operations that storage is made of. An empty error code means success. Any thread.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  /// Makes the directory and those above it, for the user alone; nothing happens when it exists. One that is there and is
  /// another user's is an error.
  [[nodiscard]] virtual std::error_code createDirectories(const std::filesystem::path& directory) = 0;
  /// The whole content of a regular file of at most 1 MiB that is the user's own. Anything else in its place is an error: a
  /// larger file, another user's, a directory, a fifo, a symbolic link. Never waits for a writer.
  [[nodiscard]] virtual std::expected<std::string, std::error_code> read(const std::filesystem::path& file) = 0;
  /// Makes a new file, readable by the user alone, with this content. Fails when something stands in its place; any other
  /// failure may leave a part of it there.
  [[nodiscard]] virtual std::error_code writeNew(const std::filesystem::path& file, std::string_view content) = 0;
  /// Moves a file, in one step, in place of whatever file stood there.
  [[nodiscard]] virtual std::error_code replace(const std::filesystem::path& file,
                                                const std::filesystem::path& with) = 0;
  [[nodiscard]] virtual std::error_code remove(const std::filesystem::path& file) = 0;
};

}  // namespace quibbly
