#include "commands/autostart_command.h"

#include <algorithm>
#include <ranges>
#include <string_view>
#include <system_error>
#include <utility>

namespace quibbly {
namespace {

constexpr const char* entryName = "org.quibbly.Quibbly.desktop";
constexpr const char* icon = "org.quibbly.Quibbly";

bool isMissing(const std::error_code& error) { return error == std::errc::no_such_file_or_directory; }

/// How desktops switch an entry off without removing it.
bool isSwitchedOff(std::string_view entry) {
  constexpr std::string_view offs[] = {"Hidden=true", "X-GNOME-Autostart-enabled=false"};
  return std::ranges::any_of(std::views::split(entry, '\n'), [&](const auto& line) {
    return std::ranges::find(offs, std::string_view(line.begin(), line.end())) != std::end(offs);
  });
}

std::unexpected<Complaint> failure(const std::string& what, const std::filesystem::path& file,
                                   const std::error_code& error) {
  return std::unexpected(Complaint{.line = "cannot " + what + " " + file.string() + ": " + error.message()});
}

/// A text as the value of a key.
std::string escaped(std::string_view text, std::string_view special) {
  std::string value;
  for (const char c : text) {
    if (special.contains(c)) value += '\\';
    value += c;
  }
  return value;
}

}  // namespace

/// The path within quotes, and the backslashes of that as every value has them.
std::string execKey(const std::string& program) {
  std::string word;
  for (const char c : escaped(program, "\"`$\\")) word += c == '%' ? std::string("%%") : std::string(1, c);
  return escaped('"' + word + '"', "\\");
}

AutostartCommand::AutostartCommand(FileSystem& files, const std::filesystem::path& configHome,
                                   std::filesystem::path program)
    : files_(files), entry_(configHome / "autostart" / entryName), program_(std::move(program)) {}

std::expected<std::string, Complaint> AutostartCommand::run(std::optional<bool> wanted) {
  if (!wanted) return show();
  return *wanted ? switchOn() : switchOff();
}

std::expected<std::string, Complaint> AutostartCommand::show() const {
  const auto entry = files_.read(entry_);
  if (!entry && !isMissing(entry.error())) return failure("read", entry_, entry.error());
  return entry && !isSwitchedOff(*entry) ? "on\n" : "off\n";
}

std::expected<std::string, Complaint> AutostartCommand::switchOn() {
  const std::string program = program_.string();
  if (std::ranges::any_of(program, [](unsigned char c) { return c < ' '; })) {
    return std::unexpected(
        Complaint{.line = "no desktop can start a program whose path has control characters; move it"});
  }
  const std::string entry =
      "[Desktop Entry]\nType=Application\nName=quibbly\nComment=Comedy, not diagnostics\nExec=" + execKey(program) +
      "\nTryExec=" + escaped(program, "\\") + "\nIcon=" + icon + "\nX-GNOME-Autostart-enabled=true\n";
  if (const auto error = files_.createDirectories(entry_.parent_path())) {
    return failure("make", entry_.parent_path(), error);
  }
  // Desktops do not look at files of this name.
  std::filesystem::path unfinished = entry_;
  unfinished += ".new";
  const auto removeUnfinished = [&] { [[maybe_unused]] const std::error_code missing = files_.remove(unfinished); };
  removeUnfinished();
  std::error_code error = files_.writeNew(unfinished, entry);
  if (!error) error = files_.replace(entry_, unfinished);
  if (!error) return "";
  removeUnfinished();
  return failure("write", entry_, error);
}

std::expected<std::string, Complaint> AutostartCommand::switchOff() {
  const std::error_code error = files_.remove(entry_);
  if (error && !isMissing(error)) return failure("remove", entry_, error);
  return "";
}

}  // namespace quibbly
