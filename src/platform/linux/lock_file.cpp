#include "platform/linux/lock_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "platform/linux/ownership.h"
#include "platform/linux/posix_file_system.h"

namespace quibbly::linux_services {
namespace {

/// Another user could hold one of theirs for as long as they like.
bool isOurs(const FileDescriptor& file) {
  struct stat status{};
  return ::fstat(file.get(), &status) == 0 && isOwn(status, S_IFREG);
}

}  // namespace

bool LockFile::take() {
  constexpr mode_t forTheUserAlone = 0600;
  if (!file_) {
    // Where it is another user's, the file may be ours all the same.
    [[maybe_unused]] const std::error_code missing = PosixFileSystem().createDirectories(path_.parent_path());
    file_ = FileDescriptor(
        ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NOCTTY | O_NONBLOCK, forTheUserAlone));
    if (file_ && !isOurs(file_)) file_ = FileDescriptor(-1);
  }
  return !file_ || ::flock(file_.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

}  // namespace quibbly::linux_services
