#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace quibbly {

/// Tells of files that come into a directory, so that nobody has to look again and again. Main thread.
class DirectoryWatch {
 public:
  virtual ~DirectoryWatch() = default;
  /// Until `end`, calls back on later turns of the main queue when a file of one of these names has come, and when the watch
  /// cannot tell any more. Not to be called again before `end`.
  virtual void begin(const std::filesystem::path& directory, std::vector<std::string> names,
                     std::function<void()> changed) = 0;
  /// Whether it would tell of what comes from now on. Not where the directory is missing (it may come: every call looks), nor
  /// where the system tells of nothing.
  [[nodiscard]] virtual bool canTell() = 0;
  virtual void end() = 0;
};

}  // namespace quibbly
