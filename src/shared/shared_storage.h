#pragma once

#include <expected>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

#include "platform/file_system.h"
#include "platform/secure_random.h"
#include "platform/shared_container.h"
#include "shared/json_coding.h"
#include "shared/shared_storage_error.h"

namespace quibbly {

/// Writes and reads the files of the shared container.
///
/// Nothing is cached and nothing is locked: a write replaces the file in one step, so a reader in another process sees the
/// old content or the new one. Of two writers the last one stays. Failures are `SharedStorageError`s, but for a container
/// that cannot be made, which is the file system's own error. Any thread.
class SharedStorage {
 public:
  SharedStorage(const SharedContainer& container, FileSystem& files, SecureRandom& random)
      : container_(container), files_(files), random_(random) {}

  /// Where the container is; absent when the system has no place for it.
  [[nodiscard]] const std::optional<std::filesystem::path>& containerURL() const { return container_.url(); }
  [[nodiscard]] bool containerAvailable() const { return containerURL().has_value(); }

  /// Puts the record in place of the file. On failure the file keeps its content.
  template <HasFields Record>
  [[nodiscard]] std::error_code write(const Record& record, std::string_view toFileName) const {
    if (!containerAvailable()) return SharedStorageError::appGroupUnavailable;
    const auto text = encodeRecord(record);
    return text ? writeText(*text, toFileName) : SharedStorageError::encodingFailed;
  }

  template <HasFields Record>
  [[nodiscard]] std::expected<Record, std::error_code> read(std::string_view fromFileName) const {
    const auto text = readText(fromFileName);
    if (!text) return std::unexpected(text.error());
    auto record = decodeRecord<Record>(*text);
    if (!record) return std::unexpected(make_error_code(SharedStorageError::decodingFailed));
    return std::move(*record);
  }

  /// The same for a file that is plain text.
  [[nodiscard]] std::error_code writeText(std::string_view text, std::string_view toFileName) const;
  [[nodiscard]] std::expected<std::string, std::error_code> readText(std::string_view fromFileName) const;

 private:
  const SharedContainer& container_;
  FileSystem& files_;
  SecureRandom& random_;
};

}  // namespace quibbly
