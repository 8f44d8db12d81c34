#include "platform/linux/window_applications.h"

#include <algorithm>
#include <map>
#include <utility>

#include "platform/ascii.h"
#include "platform/linux/bundle_identifiers.h"
#include "platform/linux/own_names.h"
#include "platform/linux/text_encoding.h"

namespace quibbly::linux_services {
namespace {

struct Identity {
  std::optional<std::string> name;
  std::string bundleIdentifier;
};

/// Windows of one application share it: the process, else the class.
using GroupKey = std::pair<std::uint32_t, std::string>;
using Groups = std::map<GroupKey, std::vector<const DesktopWindow*>>;

/// A sandboxed program counts processes from 1 and names a small number, as do its neighbours in their sandboxes. Outside
/// a sandbox the numbers below 300 belong to what started with the machine (the kernel never hands them out again), so a
/// window that names one is grouped by its class.
std::optional<std::uint32_t> realProcessId(const DesktopWindow& window) {
  constexpr std::uint32_t firstOfUsers = 300;
  return window.processId >= firstOfUsers ? window.processId : std::nullopt;
}

GroupKey keyOf(const DesktopWindow& window) {
  if (const auto process = realProcessId(window)) return {*process, ""};
  return {0, window.className.empty() ? window.instance : window.className};
}

bool isOwn(const DesktopWindow& window, std::uint32_t ownProcessId) {
  // Without regard to case: toolkits begin a class with a capital.
  const auto isOwnName = [](std::string_view name) {
    return equalIgnoringCase(name, "quibbly") || equalIgnoringCase(name, ownDesktopId);
  };
  return realProcessId(window) == ownProcessId || isOwnName(window.instance) || isOwnName(window.className);
}

bool isInTaskbar(const DesktopWindow& window) {
  const auto type = std::ranges::find_if(window.types, [](WindowType t) { return t != WindowType::unknown; });
  const bool isOrdinary = type == window.types.end() || *type != WindowType::other;
  return isOrdinary && !window.skipTaskbar;
}

const DesktopEntry* entryOf(const DesktopWindow& window, const DesktopIndex& index) {
  if (const auto* entry = index.byStartupWmClass(window.instance)) return entry;
  if (const auto* entry = index.byStartupWmClass(window.className)) return entry;
  if (const auto* entry = index.byId(window.instance)) return entry;
  return index.byId(window.className);
}

/// A launcher of the user's own making may claim a well-known program, so every name that the window has is looked up.
std::optional<std::string_view> wellKnown(const DesktopWindow& window, const DesktopEntry* entry) {
  if (entry != nullptr) {
    if (const auto known = knownBundleIdentifier(entry->id)) return known;
  }
  if (const auto known = knownBundleIdentifier(window.className)) return known;
  return knownBundleIdentifier(window.instance);
}

std::optional<Identity> identityOf(const DesktopWindow& window, const DesktopIndex& index) {
  const DesktopEntry* const entry = entryOf(window, index);
  const auto known = wellKnown(window, entry);
  if (entry == nullptr && !known) return std::nullopt;
  Identity identity{.name = std::nullopt,
                    .bundleIdentifier = std::string(known ? *known : std::string_view(entry->id))};
  if (entry != nullptr && !entry->name.empty()) identity.name = entry->name;
  return identity;
}

std::optional<Identity> firstIdentity(const std::vector<const DesktopWindow*>& windows, const DesktopIndex& index) {
  for (const auto* window : windows) {
    if (auto identity = identityOf(*window, index)) return identity;
  }
  return std::nullopt;
}

RunningApplication applicationOf(const std::vector<const DesktopWindow*>& windows, const DesktopIndex& index) {
  const bool isRegular = std::ranges::any_of(windows, [](const auto* window) { return isInTaskbar(*window); });
  RunningApplication application{isRegular ? ActivationPolicy::regular : ActivationPolicy::accessory, std::nullopt};
  if (auto identity = firstIdentity(windows, index))
    application.bundleIdentifier = std::move(identity->bundleIdentifier);
  return application;
}

FrontmostApplication frontmostOf(const DesktopWindow& active, const Groups& groups, const DesktopIndex& index) {
  // Dialogs often have a class that nobody claims; their application's other windows then tell whose they are.
  std::vector<const DesktopWindow*> windows{&active};
  if (const auto group = groups.find(keyOf(active)); group != groups.end()) {
    windows.insert(windows.end(), group->second.begin(), group->second.end());
  }
  FrontmostApplication frontmost;
  if (auto identity = firstIdentity(windows, index)) {
    frontmost = {std::move(identity->name), std::move(identity->bundleIdentifier)};
  }
  if (!frontmost.localizedName && !active.className.empty()) frontmost.localizedName = active.className;
  return frontmost;
}

}  // namespace

void setWindowClass(DesktopWindow& window, std::string_view property) {
  const auto end = property.find('\0');
  const auto instance = property.substr(0, end);
  auto className = end == std::string_view::npos ? std::string_view() : property.substr(end + 1);
  className = className.substr(0, className.find('\0'));
  window.instance = isUtf8(instance) ? instance : "";
  window.className = isUtf8(className) ? className : "";
}

ApplicationsReading decideApplications(const WindowsReading& windows, const DesktopIndex& index,
                                       std::uint32_t ownProcessId) {
  Groups groups;
  for (const auto& window : windows.managed) {
    if (!isOwn(window, ownProcessId)) groups[keyOf(window)].push_back(&window);
  }
  ApplicationsReading reading;
  for (const auto& [key, group] : groups) reading.running.push_back(applicationOf(group, index));
  if (windows.active && !isOwn(*windows.active, ownProcessId)) {
    reading.frontmost = frontmostOf(*windows.active, groups, index);
  }
  return reading;
}

}  // namespace quibbly::linux_services
