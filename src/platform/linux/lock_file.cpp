#include "platform/linux/lock_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

namespace quibbly::linux_services {

bool LockFile::heldElsewhere() {
  constexpr mode_t forTheUserAlone = 0600;
  if (!file_) {
    file_ = FileDescriptor(
        ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NOCTTY | O_NONBLOCK, forTheUserAlone));
  }
  return file_ && ::flock(file_.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

}  // namespace quibbly::linux_services
