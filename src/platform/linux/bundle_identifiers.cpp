#include "platform/linux/bundle_identifiers.h"

#include <algorithm>
#include <array>

#include "platform/ascii.h"

namespace quibbly::linux_services {
namespace {

struct KnownName {
  std::string_view name;
  std::string_view bundleIdentifier;
};

// One application has as many names as there are ways to package it: the distribution's, its maker's, Flatpak's
// (reversed domain) and snap's (snap_application).
constexpr auto knownNames = std::to_array<KnownName>({
    {"google-chrome", "com.google.Chrome"},
    {"google-chrome-stable", "com.google.Chrome"},
    {"com.google.Chrome", "com.google.Chrome"},
    {"google-chrome-canary", "com.google.Chrome.canary"},
    {"google-chrome-unstable", "com.google.Chrome.canary"},
    {"firefox", "org.mozilla.firefox"},
    {"firefox-esr", "org.mozilla.firefox"},
    {"org.mozilla.firefox", "org.mozilla.firefox"},
    {"firefox_firefox", "org.mozilla.firefox"},
    {"brave-browser", "com.brave.Browser"},
    {"com.brave.Browser", "com.brave.Browser"},
    {"brave_brave", "com.brave.Browser"},
    {"microsoft-edge", "com.microsoft.edgemac"},
    {"microsoft-edge-stable", "com.microsoft.edgemac"},
    {"com.microsoft.Edge", "com.microsoft.edgemac"},
    {"opera", "com.operasoftware.Opera"},
    {"com.opera.Opera", "com.operasoftware.Opera"},
    {"opera_opera", "com.operasoftware.Opera"},
    {"slack", "com.tinyspeck.slackmacgap"},
    {"com.slack.Slack", "com.tinyspeck.slackmacgap"},
    {"slack_slack", "com.tinyspeck.slackmacgap"},
    {"teams-for-linux", "com.microsoft.teams2"},
    {"com.github.IsmaelMartinez.teams_for_linux", "com.microsoft.teams2"},
    {"code", "com.microsoft.VSCode"},
    {"com.visualstudio.code", "com.microsoft.VSCode"},
    {"code_code", "com.microsoft.VSCode"},
    {"discord", "com.hnc.Discord"},
    {"com.discordapp.Discord", "com.hnc.Discord"},
    {"discord_discord", "com.hnc.Discord"},
    {"figma-linux", "com.figma.Desktop"},
    {"io.github.Figma_Linux.figma_linux", "com.figma.Desktop"},
    {"spotify", "com.spotify.client"},
    {"com.spotify.Client", "com.spotify.client"},
    {"spotify_spotify", "com.spotify.client"},
    {"notion-app", "com.notion.id"},
    {"notion-snap-reborn_notion-snap-reborn", "com.notion.id"},
    {"org.telegram.desktop", "com.tdesktop.Telegram"},
    {"telegramdesktop", "com.tdesktop.Telegram"},
    {"telegram-desktop_telegram-desktop", "com.tdesktop.Telegram"},
});

constexpr const KnownName* find(std::string_view name) {
  for (const KnownName& known : knownNames) {
    if (equalIgnoringCase(known.name, name)) return &known;
  }
  return nullptr;
}
static_assert(std::ranges::all_of(knownNames, [](const KnownName& known) { return find(known.name) == &known; }),
              "a name stands for one application");

}  // namespace

std::optional<std::string_view> knownBundleIdentifier(std::string_view desktopIdOrClass) {
  constexpr std::string_view suffix = ".desktop";
  const KnownName* known = find(desktopIdOrClass);
  // Only now: ".desktop" is the last part of some names, and not the suffix of their file.
  if (known == nullptr && desktopIdOrClass.ends_with(suffix)) {
    known = find(desktopIdOrClass.substr(0, desktopIdOrClass.size() - suffix.size()));
  }
  return known != nullptr ? std::optional(known->bundleIdentifier) : std::nullopt;
}

std::string bundleIdentifierFor(std::string_view desktopId) {
  return std::string(knownBundleIdentifier(desktopId).value_or(desktopId));
}

}  // namespace quibbly::linux_services
