#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

#include "platform/linux/desktop_index.h"

namespace quibbly::linux_services {

/// The desktop entries installed on this machine. Used from one thread.
class DesktopEntries {
 public:
  /// Data directories as from `dataDirectories`, locales as from `messageLocales`. Reads nothing yet.
  DesktopEntries(std::vector<std::filesystem::path> dataDirectories, std::vector<std::string> locales);

  /// The entries as they are now, read anew when a directory of theirs has changed since the last call. The reference
  /// holds until the next call.
  [[nodiscard]] const DesktopIndex& current();

 private:
  /// Tells one state of a directory from another.
  struct Stamp {
    dev_t device;
    ino_t inode;
    std::int64_t seconds;
    std::int64_t nanoseconds;

    bool operator==(const Stamp&) const = default;
  };
  struct Seen {
    std::filesystem::path directory;
    /// Absent for a directory that was not there.
    std::optional<Stamp> stamp;
  };

  static std::optional<Stamp> stampOf(const std::filesystem::path& directory);
  [[nodiscard]] bool isCurrent() const;
  void scan(DesktopIndex& index, const std::filesystem::path& directory, const std::string& idPrefix);
  void addFile(DesktopIndex& index, const std::filesystem::path& file, std::string id) const;

  std::vector<std::filesystem::path> dataDirectories_;
  std::vector<std::string> locales_;
  /// Absent before the first call.
  std::optional<DesktopIndex> index_;
  std::vector<Seen> seen_;
};

/// The environment's variables XDG_DATA_HOME, HOME and XDG_DATA_DIRS; empty when unset.
struct DataVariables {
  std::string dataHome;
  std::string home;
  std::string dataDirs;
};

/// The directories that hold a directory `applications`, highest precedence first, each once.
[[nodiscard]] std::vector<std::filesystem::path> dataDirectories(const DataVariables& variables);

}  // namespace quibbly::linux_services
