#pragma once

#include <filesystem>
#include <optional>
#include <sys/types.h>
#include <vector>

#include "platform/linux/desktop_entries.h"
#include "platform/running_applications.h"

namespace quibbly::linux_services {

/// The applications that run in units of the user's systemd, one entry a unit; read from the cgroup tree, so that nobody
/// has to be asked. Which of them is in front is not known here. Absent where no application
/// has such a unit.
class ApplicationScopes final : public RunningApplications {
 public:
  /// `root` is the root of the file system; `entries` is used on the thread of `running`.
  ApplicationScopes(const std::filesystem::path& root, uid_t user, DesktopEntries& entries);

  [[nodiscard]] std::optional<ApplicationsReading> running() override;

 private:
  /// In the order in which they are tried.
  std::vector<std::filesystem::path> slices_;
  DesktopEntries& entries_;
};

}  // namespace quibbly::linux_services
