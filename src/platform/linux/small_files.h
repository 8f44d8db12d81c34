#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quibbly::linux_services {

/// The text of a small file: of /proc, of /sys, a desktop entry. Anything but a regular file (a fifo, a device, a
/// directory) is absent, as is a file that cannot be read; a file longer than `limit` bytes is cut there. Never waits for a writer.
[[nodiscard]] std::optional<std::string> readFile(const std::filesystem::path& path,
                                                  std::size_t limit = std::size_t{64} * 1024);

/// The file's first line without the white space around it; absent as in `readFile`.
[[nodiscard]] std::optional<std::string> readLine(const std::filesystem::path& path);

/// The decimal integer that is the file's first line; absent as in `readFile`, or when the line is anything else.
[[nodiscard]] std::optional<std::int64_t> readInteger(const std::filesystem::path& path);

/// Names of a directory's entries in ascending order, "." and ".." left out; absent when it cannot be listed.
[[nodiscard]] std::optional<std::vector<std::string>> entryNames(const std::filesystem::path& directory);

}  // namespace quibbly::linux_services
