#pragma once

#include <expected>
#include <filesystem>
#include <optional>
#include <string>

#include "commands/complaint.h"
#include "platform/file_system.h"

namespace quibbly {

/// Whether the desktop starts quibbly when the user logs in: an entry in the directory where desktops keep theirs
/// (freedesktop.org), which their own settings show and switch too.
class AutostartCommand {
 public:
  /// `configHome` is the user's; `program` is what is to be started.
  AutostartCommand(FileSystem& files, const std::filesystem::path& configHome, std::filesystem::path program);

  /// What the command prints: nothing after a change, else "on" or "off". A complaint means that nothing was changed.
  [[nodiscard]] std::expected<std::string, Complaint> run(std::optional<bool> wanted);

 private:
  [[nodiscard]] std::expected<std::string, Complaint> show() const;
  [[nodiscard]] std::expected<std::string, Complaint> switchOn();
  [[nodiscard]] std::expected<std::string, Complaint> switchOff();

  FileSystem& files_;
  std::filesystem::path entry_;
  std::filesystem::path program_;
};

/// A program's path as the Exec key of a desktop entry has it.
[[nodiscard]] std::string execKey(const std::string& program);

}  // namespace quibbly
