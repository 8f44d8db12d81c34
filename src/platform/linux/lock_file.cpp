#include "platform/linux/lock_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

#include "platform/linux/posix_file_system.h"

namespace quibbly::linux_services {

bool LockFile::take() {
  constexpr mode_t forTheUserAlone = 0600;
  if (!file_ && !PosixFileSystem().createDirectories(path_.parent_path())) {
    file_ = FileDescriptor(
        ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NOCTTY | O_NONBLOCK, forTheUserAlone));
  }
  return !file_ || ::flock(file_.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

}  // namespace quibbly::linux_services
