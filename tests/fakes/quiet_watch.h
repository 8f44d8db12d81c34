#pragma once

#include "platform/directory_watch.h"

namespace quibbly::fakes {

/// A watch that misses whatever comes.
class QuietWatch final : public DirectoryWatch {
 public:
  /// One that does not tell knows that it misses everything.
  explicit QuietWatch(bool tells = true) : tells_(tells) {}

  void begin(const std::filesystem::path& /*directory*/, std::vector<std::string> /*names*/,
             std::function<void()> /*changed*/) override {}
  [[nodiscard]] bool canTell() override { return tells_; }
  void end() override {}

 private:
  bool tells_;
};

}  // namespace quibbly::fakes
