#include "platform/linux/posix_file_system.h"

#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/descriptor_io.h"
#include "platform/linux/file_descriptor.h"
#include "platform/linux/ownership.h"

namespace quibbly::linux_services {
namespace {

constexpr std::size_t largestFile = std::size_t{1024} * 1024;

std::error_code lastError() { return {errno, std::generic_category()}; }

std::error_code made(std::errc error) { return std::make_error_code(error); }

/// Whether it is there as a directory of this user's own.
std::error_code lookAt(const std::filesystem::path& directory) {
  struct stat status{};
  if (::stat(directory.c_str(), &status) != 0) return lastError();
  if (!S_ISDIR(status.st_mode)) return made(std::errc::not_a_directory);
  return isOwn(status, S_IFDIR) ? std::error_code() : made(std::errc::permission_denied);
}

std::error_code make(const std::filesystem::path& directory) {
  constexpr mode_t forTheUserAlone = 0700;
  if (::mkdir(directory.c_str(), forTheUserAlone) == 0) return {};
  // Another program may have been faster.
  return errno == EEXIST ? lookAt(directory) : lastError();
}

}  // namespace

std::error_code PosixFileSystem::createDirectories(const std::filesystem::path& directory) {
  if (const std::error_code found = lookAt(directory); found != std::errc::no_such_file_or_directory) return found;
  std::error_code error = make(directory);
  if (error != std::errc::no_such_file_or_directory || !directory.has_relative_path()) return error;
  // The one above is missing: one that is there may be another user's.
  error = createDirectories(directory.parent_path());
  return error ? error : make(directory);
}

std::expected<std::string, std::error_code> PosixFileSystem::read(const std::filesystem::path& file) {
  const FileDescriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY));
  struct stat status{};
  if (!opened || ::fstat(opened.get(), &status) != 0) return std::unexpected(lastError());
  if (!S_ISREG(status.st_mode)) return std::unexpected(made(std::errc::invalid_argument));
  if (!isOwn(status, S_IFREG)) return std::unexpected(made(std::errc::permission_denied));
  // One byte too many is enough to know.
  auto content = readUpTo(opened.get(), largestFile + 1, static_cast<std::size_t>(status.st_size));
  if (content && content->size() > largestFile) return std::unexpected(made(std::errc::file_too_large));
  return content;
}

std::error_code PosixFileSystem::writeNew(const std::filesystem::path& file, std::string_view content) {
  constexpr mode_t forTheUserAlone = 0600;
  FileDescriptor opened(::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, forTheUserAlone));
  if (!opened) return lastError();
  if (const std::error_code error = writeAll(opened.get(), content)) return error;
  return opened.close() ? std::error_code() : lastError();
}

std::error_code PosixFileSystem::replace(const std::filesystem::path& file, const std::filesystem::path& with) {
  return ::rename(with.c_str(), file.c_str()) == 0 ? std::error_code() : lastError();
}

std::error_code PosixFileSystem::remove(const std::filesystem::path& file) {
  return ::unlink(file.c_str()) == 0 ? std::error_code() : lastError();
}

}  // namespace quibbly::linux_services
