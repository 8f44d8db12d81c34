#pragma once

#include <string>
#include <system_error>

namespace quibbly {

/// Why `SharedStorage` failed. As an error code its message is the text that is shown.
enum class SharedStorageError {
  appGroupUnavailable = 1,  // 0 would mean success
  encodingFailed,
  /// Missing and corrupt are one failure to every reader.
  decodingFailed,
  writeFailed,
};

[[nodiscard]] const std::error_category& sharedStorageCategory();

[[nodiscard]] inline std::error_code make_error_code(SharedStorageError error) {
  return {static_cast<int>(error), sharedStorageCategory()};
}

}  // namespace quibbly

template <>
struct std::is_error_code_enum<quibbly::SharedStorageError> : std::true_type {};
