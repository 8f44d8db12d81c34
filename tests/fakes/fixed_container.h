#pragma once

#include <utility>

#include "platform/shared_container.h"

namespace quibbly::fakes {

/// A container where the test put it, or none.
class FixedContainer : public SharedContainer {
 public:
  explicit FixedContainer(std::optional<std::filesystem::path> url) : url_(std::move(url)) {}
  [[nodiscard]] const std::optional<std::filesystem::path>& url() const override { return url_; }

 private:
  std::optional<std::filesystem::path> url_;
};

}  // namespace quibbly::fakes
