#include "platform/linux/desktop_entries.h"

#include <algorithm>
#include <ranges>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <utility>

#include "platform/linux/small_files.h"
#include "platform/linux/text_encoding.h"

namespace quibbly::linux_services {

DesktopEntries::DesktopEntries(std::vector<std::filesystem::path> dataDirectories, std::vector<std::string> locales)
    : dataDirectories_(std::move(dataDirectories)), locales_(std::move(locales)) {}

const DesktopIndex& DesktopEntries::current() {
  if (index_ && isCurrent()) return *index_;
  DesktopIndex& index = index_.emplace();
  seen_.clear();
  for (const auto& directory : dataDirectories_) scan(index, directory / "applications", "");
  return index;
}

std::optional<DesktopEntries::Stamp> DesktopEntries::stampOf(const std::filesystem::path& directory) {
  struct stat status{};
  if (::stat(directory.c_str(), &status) != 0) return std::nullopt;
  // Some systems install by turning a link to another directory and give all of them the same time; so device and inode.
  return Stamp{status.st_dev, status.st_ino, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

bool DesktopEntries::isCurrent() const {
  return std::ranges::all_of(seen_, [](const Seen& seen) { return stampOf(seen.directory) == seen.stamp; });
}

void DesktopEntries::scan(DesktopIndex& index, const std::filesystem::path& directory, const std::string& idPrefix) {
  constexpr std::string_view suffix = ".desktop";
  // Stamped before it is listed: a file added in between is then found at the next call.
  seen_.push_back({directory, stampOf(directory)});
  for (const auto& name : entryNames(directory).value_or(std::vector<std::string>{})) {
    if (name.ends_with(suffix)) {
      addFile(index, directory / name, idPrefix + name.substr(0, name.size() - suffix.size()));
      continue;
    }
    // Not through symbolic links, which can lead round in circles.
    std::error_code error;
    if (std::filesystem::is_directory(std::filesystem::symlink_status(directory / name, error))) {
      scan(index, directory / name, idPrefix + name + "-");
    }
  }
}

void DesktopEntries::addFile(DesktopIndex& index, const std::filesystem::path& file, std::string id) const {
  // Office programs come near 64 KiB with the translations of their actions.
  constexpr std::size_t longestFile = std::size_t{256} * 1024;
  const auto text = isUtf8(id) ? readFile(file, longestFile) : std::nullopt;
  if (!text) return;
  if (auto entry = parseDesktopEntry(std::move(id), *text, locales_)) index.add(std::move(*entry));
}

std::vector<std::filesystem::path> dataDirectories(const DataVariables& variables) {
  std::vector<std::filesystem::path> directories;
  const auto add = [&directories](const std::filesystem::path& directory) {
    // A trailing slash becomes an empty last name.
    auto plain = (directory / "").lexically_normal().parent_path();
    if (directory.is_absolute() && std::ranges::find(directories, plain) == directories.end())
      directories.push_back(std::move(plain));
  };

  std::filesystem::path home = variables.dataHome;
  if (!home.is_absolute()) home = std::filesystem::path(variables.home) / ".local/share";
  add(home);
  const std::string shared = variables.dataDirs.empty() ? "/usr/local/share:/usr/share" : variables.dataDirs;
  for (const auto part : std::views::split(shared, ':')) add(std::string_view(part.begin(), part.end()));
  // Login scripts add these to the variable, and a program started without such a script would miss them.
  add(home / "flatpak/exports/share");
  add("/var/lib/flatpak/exports/share");
  add("/var/lib/snapd/desktop");
  return directories;
}

}  // namespace quibbly::linux_services
