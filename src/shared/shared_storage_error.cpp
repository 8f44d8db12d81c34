#include "shared/shared_storage_error.h"

namespace quibbly {
namespace {

class Category : public std::error_category {
 public:
  [[nodiscard]] const char* name() const noexcept override { return "shared storage"; }
  [[nodiscard]] std::string message(int error) const override {
    switch (static_cast<SharedStorageError>(error)) {
      case SharedStorageError::appGroupUnavailable:
        return "App Group container is unavailable. Check entitlements and App Group ID.";
      case SharedStorageError::encodingFailed:
        return "Failed to encode shared JSON.";
      case SharedStorageError::decodingFailed:
        return "Failed to decode shared JSON (missing or corrupt).";
      case SharedStorageError::writeFailed:
        return "Failed to write shared JSON.";
    }
    return "Unknown failure of shared storage.";
  }
};

}  // namespace

const std::error_category& sharedStorageCategory() {
  static const Category category;
  return category;
}

}  // namespace quibbly
