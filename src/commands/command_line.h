#pragma once

#include <expected>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "commands/prefs_command.h"

namespace quibbly {

/// What a call of the program asks for.
struct CommandLine {
  enum class Command { run, roast, sample, prefs, autostart, showText };

  Command command = Command::run;
  /// For `run`: use the terminal although there is a display.
  bool terminal = false;
  /// For `run`: what to open.
  std::vector<std::string> urls;
  /// Print one JSON object in place of text.
  bool json = false;
  PrefsRequest prefs;
  /// For `autostart`: absent asks how it is.
  std::optional<bool> startsAtLogin;
  /// What `showText` prints: the help or the version.
  std::string text;

  bool operator==(const CommandLine&) const = default;
};

/// Reads the words after the program's name. The error is one line for the user that says what is wrong with them.
[[nodiscard]] std::expected<CommandLine, std::string> parseCommandLine(std::span<const char* const> arguments);

}  // namespace quibbly
