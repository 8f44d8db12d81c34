#pragma once

#include "platform/directory_watch.h"

namespace quibbly::fakes {

/// A watch of a directory into which nothing comes.
class QuietWatch final : public DirectoryWatch {
 public:
  void begin(const std::filesystem::path& /*directory*/, std::vector<std::string> /*names*/,
             std::function<void()> /*changed*/) override {}
  [[nodiscard]] bool canTell() override { return true; }
  void end() override {}
};

}  // namespace quibbly::fakes
