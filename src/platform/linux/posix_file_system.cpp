#include "platform/linux/posix_file_system.h"

#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/file_descriptor.h"

namespace quibbly::linux_services {
namespace {

constexpr std::size_t largestFile = std::size_t{1024} * 1024;

std::error_code lastError() { return {errno, std::generic_category()}; }

std::error_code made(std::errc error) { return std::make_error_code(error); }

/// Reads until the end or until the text is larger than any of our files.
std::expected<std::string, std::error_code> readAll(int file, std::size_t expected) {
  std::string content(expected + 1, '\0');  // one more, to meet the end with the first reading
  std::size_t filled = 0;
  while (true) {
    const ssize_t got = ::read(file, content.data() + filled, content.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return std::unexpected(lastError());
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
    if (filled > largestFile) return std::unexpected(made(std::errc::file_too_large));
    if (filled == content.size()) content.resize(content.size() * 2);
  }
  content.resize(filled);
  return content;
}

std::error_code writeAll(int file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(file, content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return lastError();
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

}  // namespace

std::error_code PosixFileSystem::createDirectories(const std::filesystem::path& directory) {
  constexpr mode_t forTheUserAlone = 0700;
  if (::mkdir(directory.c_str(), forTheUserAlone) == 0) return {};
  if (errno == EEXIST) return directoryExists(directory) ? std::error_code() : made(std::errc::not_a_directory);
  if (errno != ENOENT || !directory.has_relative_path()) return lastError();
  if (const std::error_code error = createDirectories(directory.parent_path())) return error;
  return ::mkdir(directory.c_str(), forTheUserAlone) == 0 || errno == EEXIST ? std::error_code() : lastError();
}

bool PosixFileSystem::directoryExists(const std::filesystem::path& directory) {
  struct stat status{};
  return ::stat(directory.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::expected<std::string, std::error_code> PosixFileSystem::read(const std::filesystem::path& file) {
  const FileDescriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY));
  struct stat status{};
  if (!opened || ::fstat(opened.get(), &status) != 0) return std::unexpected(lastError());
  if (!S_ISREG(status.st_mode)) return std::unexpected(made(std::errc::invalid_argument));
  const auto size = static_cast<std::size_t>(status.st_size);
  if (size > largestFile) return std::unexpected(made(std::errc::file_too_large));
  return readAll(opened.get(), size);
}

std::error_code PosixFileSystem::writeNew(const std::filesystem::path& file, std::string_view content) {
  constexpr mode_t forTheUserAlone = 0600;
  const FileDescriptor opened(
      ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, forTheUserAlone));
  return opened ? writeAll(opened.get(), content) : lastError();
}

std::error_code PosixFileSystem::replace(const std::filesystem::path& file, const std::filesystem::path& with) {
  return ::rename(with.c_str(), file.c_str()) == 0 ? std::error_code() : lastError();
}

std::error_code PosixFileSystem::remove(const std::filesystem::path& file) {
  return ::unlink(file.c_str()) == 0 ? std::error_code() : lastError();
}

}  // namespace quibbly::linux_services
