#pragma once

#include <sys/types.h>

#include "platform/directory_watch.h"
#include "platform/linux/file_descriptor.h"
#include "platform/main_queue.h"

namespace quibbly::linux_services {

/// The kernel's inotify. It cannot tell of what other machines do, so only directories of file systems that are known to be
/// local are watched. Nor does it tell when a directory above is renamed, or when one is removed that somebody still has
/// open: the next `canTell` finds that. Main thread.
class InotifyWatch final : public DirectoryWatch {
 public:
  explicit InotifyWatch(MainQueue& queue) : queue_(queue) {}
  InotifyWatch(const InotifyWatch&) = delete;
  InotifyWatch& operator=(const InotifyWatch&) = delete;
  ~InotifyWatch() override { close(); }

  void begin(const std::filesystem::path& directory, std::vector<std::string> names,
             std::function<void()> changed) override;
  [[nodiscard]] bool canTell() override;
  void end() override;

 private:
  /// Which directory it is, whatever its name.
  struct Identity {
    dev_t device = 0;
    ino_t number = 0;

    /// All zero for none.
    [[nodiscard]] static Identity of(const std::filesystem::path& directory);
    bool operator==(const Identity&) const = default;
  };
  /// What one reading of the descriptor says.
  struct News {
    bool hasCome = false;
    bool isOver = false;
  };

  void read();
  [[nodiscard]] News takeNews() const;
  void close();

  MainQueue& queue_;
  std::filesystem::path directory_;
  std::vector<std::string> names_;
  std::function<void()> changed_;
  FileDescriptor descriptor_{-1};  // only while it watches
  Identity watched_;
};

}  // namespace quibbly::linux_services
