#include "platform/linux/inotify_watch.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <linux/magic.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>
#include <utility>

#include <climits>

namespace quibbly::linux_services {
namespace {

constexpr std::uint32_t hasCome = IN_CREATE | IN_MOVED_TO | IN_Q_OVERFLOW;
constexpr std::uint32_t isOver = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED;

/// Whether only this kernel writes there, as far as is known: on a file system of a network, or of a virtual machine's host,
/// others write too, and nobody tells of that.
bool isLocal(const std::filesystem::path& directory) {
  constexpr std::uint32_t jfs = 0x3153464a;
  constexpr std::uint32_t zfs = 0x2fc12fc1;
  constexpr std::uint32_t bcachefs = 0xca451a4e;
  constexpr auto local = std::to_array<std::uint32_t>(
      {EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC, F2FS_SUPER_MAGIC, TMPFS_MAGIC, RAMFS_MAGIC,
       OVERLAYFS_SUPER_MAGIC, REISERFS_SUPER_MAGIC, NILFS_SUPER_MAGIC, jfs, zfs, bcachefs});
  struct statfs system{};
  return ::statfs(directory.c_str(), &system) == 0 &&
         std::ranges::find(local, static_cast<std::uint32_t>(system.f_type)) != local.end();
}

}  // namespace

InotifyWatch::Identity InotifyWatch::Identity::of(const std::filesystem::path& directory) {
  struct stat found{};
  if (::stat(directory.c_str(), &found) != 0) return {};
  return {.device = found.st_dev, .number = found.st_ino};
}

void InotifyWatch::begin(const std::filesystem::path& directory, std::vector<std::string> names,
                         std::function<void()> changed) {
  directory_ = directory;
  names_ = std::move(names);
  changed_ = std::move(changed);
}

bool InotifyWatch::canTell() {
  const Identity there = Identity::of(directory_);
  // Of a directory above it that is renamed nobody tells.
  if (descriptor_ && there == watched_) return true;
  close();
  if (!changed_ || !isLocal(directory_)) return false;
  FileDescriptor made(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
  constexpr std::uint32_t events = IN_CREATE | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
  if (!made || ::inotify_add_watch(made.get(), directory_.c_str(), events) < 0) return false;
  descriptor_ = std::move(made);
  watched_ = there;
  queue_.watch(descriptor_.get(), [this] { read(); });
  return true;
}

void InotifyWatch::end() {
  close();
  changed_ = nullptr;
}

void InotifyWatch::read() {
  const News news = takeNews();
  if (news.isOver) close();
  // It may end the watch.
  const auto changed = changed_;
  if (news.hasCome || news.isOver) changed();
}

InotifyWatch::News InotifyWatch::takeNews() const {
  News news;
  std::array<char, 16 * (sizeof(inotify_event) + NAME_MAX + 1)> buffer{};
  for (ssize_t got = 0; (got = ::read(descriptor_.get(), buffer.data(), buffer.size())) > 0;) {
    const auto length = static_cast<std::size_t>(got);
    for (std::size_t at = 0; at + sizeof(inotify_event) <= length;) {
      inotify_event event{};
      std::memcpy(&event, &buffer.at(at), sizeof event);
      at += sizeof event;
      // Names end with a null, and more of them fill the place.
      const char* const name = event.len > 0 ? &buffer.at(at) : "";
      at += event.len;
      const bool isNamed = event.len == 0 || std::ranges::find(names_, name) != names_.end();
      news.hasCome = news.hasCome || ((event.mask & hasCome) != 0 && isNamed);
      news.isOver = news.isOver || (event.mask & isOver) != 0;
    }
  }
  return news;
}

void InotifyWatch::close() {
  if (!descriptor_) return;
  queue_.unwatch(descriptor_.get());
  descriptor_ = FileDescriptor(-1);
}

}  // namespace quibbly::linux_services
