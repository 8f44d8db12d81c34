#include "platform/linux/application_scopes.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/linux/bundle_identifiers.h"
#include "platform/linux/own_names.h"
#include "platform/linux/small_files.h"
#include "platform/linux/systemd_units.h"

namespace quibbly::linux_services {
namespace {

/// Adds the names of the units below a slice; false when it cannot be listed. An application may have a slice of its own.
bool collectUnits(const std::filesystem::path& slice, std::vector<std::string>& units) {
  const auto names = entryNames(slice);
  if (!names) return false;
  for (const auto& name : *names) {
    const bool isSlice = name.starts_with("app-") && name.ends_with(".slice");
    // One that ended in the meantime has no units.
    if (isSlice) collectUnits(slice / name, units);
    if (!isSlice) units.push_back(name);
  }
  return true;
}

std::optional<RunningApplication> applicationOf(const std::string& unit, const DesktopIndex& index) {
  const auto id = applicationIdOfUnit(unit);
  const DesktopEntry* const entry = id ? index.byId(*id) : nullptr;
  if (entry == nullptr || !entry->visible() || entry->id == ownDesktopId) return std::nullopt;
  return RunningApplication{ActivationPolicy::regular, bundleIdentifierFor(entry->id)};
}

/// Where the user's applications have their units. Systems with the older control groups mount the tree of systemd one
/// level lower.
std::vector<std::filesystem::path> slicesOf(const std::filesystem::path& root, uid_t userId) {
  const std::string user = std::to_string(userId);
  const std::string below = "user.slice/user-" + user + ".slice/user@" + user + ".service/app.slice";
  const auto groups = root / "sys/fs/cgroup";
  return {groups / below, groups / "unified" / below, groups / "systemd" / below};
}

}  // namespace

ApplicationScopes::ApplicationScopes(const std::filesystem::path& root, uid_t user, DesktopEntries& entries)
    : slices_(slicesOf(root, user)), entries_(entries) {}

std::optional<ApplicationsReading> ApplicationScopes::running() {
  std::vector<std::string> units;
  if (!std::ranges::any_of(slices_, [&](const auto& slice) { return collectUnits(slice, units); })) return std::nullopt;

  // A desktop that starts programs without units of their own has the slice and nothing in it: somebody else may know.
  ApplicationsReading reading;
  const DesktopIndex& index = entries_.current();
  for (const auto& unit : units) {
    if (auto application = applicationOf(unit, index)) reading.running.push_back(std::move(*application));
  }
  return reading.running.empty() ? std::nullopt : std::optional(std::move(reading));
}

}  // namespace quibbly::linux_services
