#pragma once

#include <sys/stat.h>
#include <unistd.h>

namespace quibbly::linux_services {

/// Whether it is of this kind, such as S_IFREG, and this user's own: what others left in our place is theirs to change.
[[nodiscard]] inline bool isOwn(const struct stat& status, mode_t kind) {
  return (status.st_mode & S_IFMT) == kind && status.st_uid == ::geteuid();
}

}  // namespace quibbly::linux_services
