#include "app/kept_preferences.h"

#include <utility>
#include <vector>

namespace quibbly {

/// Makes up for what could not be read. Whether nothing of it is left: while something is, the store is not asked further.
bool KeptPreferences::reaches() {
  while (!unread_.empty()) {
    const auto next = unread_.begin();
    auto found = store_.read(*next);
    if (!found) return false;
    if (*found) kept_.erase(*next);
    read_.insert_or_assign(*next, std::move(*found));
    unread_.erase(next);
  }
  return true;
}

PreferenceStore::Reading KeptPreferences::read(std::string_view key) {
  const bool isReached = reaches();
  if (const auto kept = kept_.find(key); kept != kept_.end()) return kept->second;
  if (isReached) {
    if (auto found = store_.read(key)) return read_.insert_or_assign(std::string(key), std::move(*found)).first->second;
  }
  if (const auto known = read_.find(key); known != read_.end()) return known->second;
  unread_.emplace(key);
  return std::nullopt;
}

PreferenceStore::Listing KeptPreferences::all() {
  auto values = store_.all();
  if (!values) return values;
  for (const auto& [key, kept] : kept_) {
    values->erase(key);
    if (kept) values->emplace(key, *kept);
  }
  return values;
}

std::error_code KeptPreferences::apply(std::span<const PreferenceChange> changes) {
  for (const PreferenceChange& change : changes) {
    kept_.insert_or_assign(change.key, change.value);
    // Made by who could not see what is stored.
    if (!unread_.empty() && !read_.contains(change.key)) unread_.insert(change.key);
  }
  if (!reaches()) return {};
  std::vector<PreferenceChange> pending;
  pending.reserve(kept_.size());
  for (const auto& [key, kept] : kept_) pending.push_back({.key = key, .value = kept});
  if (store_.apply(pending)) return {};
  for (auto& [key, kept] : kept_) read_.insert_or_assign(key, std::move(kept));
  kept_.clear();
  return {};
}

}  // namespace quibbly
