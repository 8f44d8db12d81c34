#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quibbly::linux_services {

/// What a desktop entry file says of a program.
struct DesktopEntry {
  /// The path below the directory `applications`, its '/' turned into '-', without ".desktop".
  std::string id;
  /// In the user's language; empty when the file has none.
  std::string name;
  /// The WM_CLASS of the program's windows; empty when the file does not tell.
  std::string startupWmClass;
  /// Of the type Application.
  bool application = false;
  /// Uninstalled by the user, who cannot remove the system's file.
  bool hidden = false;
  bool noDisplay = false;

  [[nodiscard]] bool installed() const { return application && !hidden; }
  /// Offered in the desktop's menus.
  [[nodiscard]] bool visible() const { return installed() && !noDisplay; }
};

/// Reads a desktop entry file. `locales` as from `messageLocales`. Absent for a file that has no group [Desktop Entry].
[[nodiscard]] std::optional<DesktopEntry> parseDesktopEntry(std::string id, std::string_view text,
                                                            const std::vector<std::string>& locales);

/// The environment's variables of the same names; empty when unset.
struct LocaleVariables {
  std::string lcAll;
  std::string lcMessages;
  std::string lang;
};

/// The suffixes of localized keys to try, best one first: de_AT@euro, de_AT, de@euro, de. Empty for the C locale.
[[nodiscard]] std::vector<std::string> messageLocales(const LocaleVariables& variables);

}  // namespace quibbly::linux_services
