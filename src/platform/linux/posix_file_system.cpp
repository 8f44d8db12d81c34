#include "platform/linux/posix_file_system.h"

#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/descriptor_io.h"
#include "platform/linux/file_descriptor.h"

namespace quibbly::linux_services {
namespace {

constexpr std::size_t largestFile = std::size_t{1024} * 1024;

std::error_code lastError() { return {errno, std::generic_category()}; }

std::error_code made(std::errc error) { return std::make_error_code(error); }

bool directoryExists(const std::filesystem::path& directory) {
  struct stat status{};
  return ::stat(directory.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

std::error_code PosixFileSystem::createDirectories(const std::filesystem::path& directory) {
  constexpr mode_t forTheUserAlone = 0700;
  if (directoryExists(directory)) return {};
  if (::mkdir(directory.c_str(), forTheUserAlone) == 0) return {};
  if (errno == EEXIST) return directoryExists(directory) ? std::error_code() : made(std::errc::not_a_directory);
  if (errno != ENOENT || !directory.has_relative_path()) return lastError();
  if (const std::error_code error = createDirectories(directory.parent_path())) return error;
  return ::mkdir(directory.c_str(), forTheUserAlone) == 0 || errno == EEXIST ? std::error_code() : lastError();
}

std::expected<std::string, std::error_code> PosixFileSystem::read(const std::filesystem::path& file) {
  const FileDescriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY));
  struct stat status{};
  if (!opened || ::fstat(opened.get(), &status) != 0) return std::unexpected(lastError());
  if (!S_ISREG(status.st_mode)) return std::unexpected(made(std::errc::invalid_argument));
  if (status.st_uid != ::geteuid()) return std::unexpected(made(std::errc::permission_denied));
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
