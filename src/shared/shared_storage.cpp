#include "shared/shared_storage.h"

#include <string>

#include "shared/uuid.h"

namespace quibbly {

std::error_code SharedStorage::writeText(std::string_view text, std::string_view toFileName) const {
  const auto& container = containerURL();
  if (!container) return SharedStorageError::appGroupUnavailable;
  const auto target = *container / toFileName;
  if (const std::error_code error = files_.createDirectories(*container)) return error;

  // Its name is its own, so that two writers do not write into one file.
  const auto temporary = *container / (std::string(toFileName) + "." + freshUuid(random_) + ".tmp");
  std::error_code error = files_.writeNew(temporary, text);
  if (!error) error = files_.replace(target, temporary);
  if (!error) return {};
  [[maybe_unused]] const std::error_code leftBehind = files_.remove(temporary);
  return SharedStorageError::writeFailed;
}

std::expected<std::string, std::error_code> SharedStorage::readText(std::string_view fromFileName) const {
  const auto& container = containerURL();
  if (!container) return std::unexpected(make_error_code(SharedStorageError::appGroupUnavailable));
  auto text = files_.read(*container / fromFileName);
  if (!text) return std::unexpected(make_error_code(SharedStorageError::decodingFailed));
  return std::move(*text);
}

}  // namespace quibbly
