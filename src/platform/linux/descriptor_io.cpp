#include "platform/linux/descriptor_io.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace quibbly::linux_services {

std::expected<std::string, std::error_code> readUpTo(int descriptor, std::size_t limit, std::size_t expected) {
  constexpr std::size_t chunk = 4096;
  std::string text;
  // One byte more than expected, to meet the end without growing.
  for (std::size_t room = std::max(chunk, expected + 1); text.size() < limit; room = chunk) {
    const std::size_t before = text.size();
    text.resize(std::min(before + room, limit));
    const ssize_t got = ::read(descriptor, text.data() + before, text.size() - before);
    text.resize(before + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    if (got == 0) break;
    if (got < 0 && errno != EINTR) return std::unexpected(std::error_code(errno, std::generic_category()));
  }
  return text;
}

std::error_code writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(descriptor, text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      return {errno, std::generic_category()};
    }
  }
  return {};
}

}  // namespace quibbly::linux_services
