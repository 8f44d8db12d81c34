#pragma once

#include <filesystem>
#include <optional>

namespace quibbly {

/// The directory that all programs of the application group share. Any thread.
class SharedContainer {
 public:
  virtual ~SharedContainer() = default;
  /// Where it is, whether it exists yet or not; absent when the system has no place for it.
  [[nodiscard]] virtual const std::optional<std::filesystem::path>& url() const = 0;
};

}  // namespace quibbly
