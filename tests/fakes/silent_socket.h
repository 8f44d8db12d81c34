#pragma once

#include <filesystem>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace quibbly::fakes {

/// A server that hangs: connections to its socket succeed, and nothing ever comes back.
class SilentSocket {
 public:
  explicit SilentSocket(const std::string& path) : path_(path), listener_(::socket(AF_UNIX, SOCK_STREAM, 0)) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    listening_ = ::bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
                 ::listen(listener_, 16) == 0;
  }
  SilentSocket(const SilentSocket&) = delete;
  SilentSocket& operator=(const SilentSocket&) = delete;
  ~SilentSocket() {
    ::close(listener_);
    ::unlink(path_.c_str());
  }

  [[nodiscard]] bool listening() const { return listening_; }

 private:
  std::string path_;
  int listener_;
  bool listening_ = false;
};

}  // namespace quibbly::fakes
