#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <system_error>

namespace quibbly::fakes {

inline std::string contentOf(const std::filesystem::path& file) {
  std::ostringstream content;
  content << std::ifstream(file).rdbuf();
  return content.str();
}

/// A temporary directory that stands in for "/", removed at the end. Paths are relative to it; directories on the way to
/// a file are made.
class FileTree {
 public:
  explicit FileTree(const std::filesystem::path& in = std::filesystem::temp_directory_path()) {
    std::string name = (in / "quibbly-tree-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary directory");
    root_ = name;
  }
  FileTree(const FileTree&) = delete;
  FileTree& operator=(const FileTree&) = delete;
  ~FileTree() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  [[nodiscard]] const std::filesystem::path& root() const { return root_; }

  void add(const std::filesystem::path& path, std::string_view content) { std::ofstream(place(path)) << content; }

  /// Files below the directory, their contents ended by a line break as in /sys. A line is "path: content", and more
  /// files in the same place may follow on it: "BAT0/type: Battery | status: Full". Even an empty listing makes the
  /// directory.
  void addListing(const std::filesystem::path& directory, const std::string& listing) {
    std::filesystem::create_directories(root_ / directory);
    std::istringstream lines(listing);
    for (std::string line; std::getline(lines, line);) addLine(directory, line);
  }

  void fifo(const std::filesystem::path& path) {
    if (::mkfifo(place(path).c_str(), 0600) != 0) throw std::runtime_error("no fifo");
  }

  void link(const std::filesystem::path& path, const std::filesystem::path& target) {
    std::filesystem::create_symlink(target, place(path));
  }

 private:
  std::filesystem::path place(const std::filesystem::path& path) {
    std::filesystem::create_directories((root_ / path).parent_path());
    return root_ / path;
  }

  void addLine(std::filesystem::path directory, std::string_view line) {
    constexpr std::string_view next = " | ";
    while (!line.empty()) {
      const auto end = std::min(line.find(next), line.size());
      const auto colon = line.substr(0, end).find(": ");
      if (colon == std::string_view::npos) throw std::invalid_argument("no content: " + std::string(line));
      const auto path = directory / line.substr(0, colon);
      add(path, std::string(line.substr(colon + 2, end - colon - 2)) + "\n");
      directory = path.parent_path();
      line.remove_prefix(std::min(end + next.size(), line.size()));
    }
  }

  std::filesystem::path root_;
};

}  // namespace quibbly::fakes
