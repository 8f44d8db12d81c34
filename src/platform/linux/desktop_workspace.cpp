#include "platform/linux/desktop_workspace.h"

#include <algorithm>
#include <array>
#include <ranges>
#include <string_view>
#include <vector>

#include "platform/ascii.h"
#include "platform/linux/child_process.h"
#include "platform/linux/text_fields.h"

namespace quibbly::linux_services {
namespace {

constexpr std::string_view systemSettings = "x-apple.systempreferences:";

/// Where a desktop lets its user set up notifications. Desktops have the names that they put into XDG_CURRENT_DESKTOP.
struct SettingsPage {
  std::string_view desktops;
  std::string_view command;
};

constexpr auto settingsPages = std::to_array<SettingsPage>({
    {"GNOME:Unity:Budgie", "gnome-control-center notifications"},
    {"KDE", "systemsettings kcm_notifications"},
    {"XFCE", "xfce4-notifyd-config"},
    {"MATE", "mate-notification-properties"},
    {"LXQt", "lxqt-config-notificationd"},
});

std::vector<std::string_view> namesIn(std::string_view list) {
  std::vector<std::string_view> names;
  for (const auto part : std::views::split(list, ':')) names.emplace_back(part.begin(), part.end());
  return names;
}

bool isPageOf(const SettingsPage& page, const std::vector<std::string_view>& desktops) {
  const auto names = namesIn(page.desktops);
  return std::ranges::find_first_of(names, desktops, equalIgnoringCase) != names.end();
}

bool isLetter(char c) { return lowered(c) >= 'a' && lowered(c) <= 'z'; }

bool isURL(std::string_view url) {
  const auto scheme = url.substr(0, url.find(':'));
  const auto mayFollow = [](char c) {
    return isLetter(c) || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
  };
  return scheme.size() < url.size() && !scheme.empty() && isLetter(scheme.front()) &&
         std::ranges::all_of(scheme, mayFollow);
}

}  // namespace

bool DesktopWorkspace::openURL(std::string_view url) {
  if (url.starts_with(systemSettings)) return openSettings();
  return isURL(url) && ChildProcess::start({"xdg-open", std::string(url)}, searchPath_).has_value();
}

/// This desktop's own page, or that of any other whose settings are installed: it may be what a desktop that we do not know
/// has borrowed.
bool DesktopWorkspace::openSettings() const {
  const auto desktops = namesIn(currentDesktop_);
  const auto opens = [&](bool own) {
    return std::ranges::any_of(settingsPages, [&](const SettingsPage& page) {
      return isPageOf(page, desktops) == own && start(page.command);
    });
  };
  return opens(true) || opens(false);
}

bool DesktopWorkspace::start(std::string_view command) const {
  const auto words = fieldsOf(command);
  return ChildProcess::start({words.begin(), words.end()}, searchPath_).has_value();
}

}  // namespace quibbly::linux_services
