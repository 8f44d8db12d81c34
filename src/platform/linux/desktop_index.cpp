#include "platform/linux/desktop_index.h"

#include <algorithm>
#include <utility>

#include "platform/ascii.h"

namespace quibbly::linux_services {
namespace {

/// A program may install several entries for the class of its windows, one a profile or a helper: the one that bears the
/// class's own name is meant, else one that people can see.
std::pair<bool, bool> claim(const DesktopEntry& entry) {
  return {equalIgnoringCase(entry.id, entry.startupWmClass), entry.visible()};
}

}  // namespace

void DesktopIndex::add(DesktopEntry entry) {
  const auto [added, isNew] = entries_.try_emplace(entry.id, entry);
  if (!isNew || !entry.installed() || entry.startupWmClass.empty()) return;
  const auto [other, isFirst] = idsByClass_.try_emplace(entry.startupWmClass, entry.id);
  if (!isFirst && claim(entry) > claim(entries_.at(other->second))) other->second = entry.id;
}

const DesktopEntry* DesktopIndex::byStartupWmClass(std::string_view windowClass) const {
  const auto found = idsByClass_.find(windowClass);
  return found != idsByClass_.end() ? installed(found->second) : nullptr;
}

const DesktopEntry* DesktopIndex::byId(std::string_view name) const {
  if (const auto* entry = installed(name)) return entry;
  std::string id(name);
  std::ranges::transform(id, id.begin(), [](char c) { return c == ' ' ? '-' : lowered(c); });
  return installed(id);
}

const DesktopEntry* DesktopIndex::installed(std::string_view id) const {
  const auto found = entries_.find(id);
  return found != entries_.end() && found->second.installed() ? &found->second : nullptr;
}

}  // namespace quibbly::linux_services
