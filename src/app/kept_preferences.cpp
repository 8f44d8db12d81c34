#include "app/kept_preferences.h"

#include <utility>
#include <vector>

namespace quibbly {

bool KeptPreferences::reaches() {
  if (!store_.open()) return false;
  if (!std::exchange(wasReached_, true)) {
    std::erase_if(kept_, [&](const auto& entry) { return store_.contains(entry.first); });
  }
  return true;
}

std::optional<PreferenceValue> KeptPreferences::value(std::string_view key) {
  const bool isReached = reaches();
  if (const auto kept = kept_.find(key); kept != kept_.end()) return kept->second;
  if (isReached) return read_.insert_or_assign(std::string(key), store_.value(key)).first->second;
  const auto known = read_.find(key);
  return known != read_.end() ? known->second : std::nullopt;
}

std::map<std::string, PreferenceValue> KeptPreferences::all() {
  auto values = store_.all();
  for (const auto& [key, kept] : kept_) {
    values.erase(key);
    if (kept) values.emplace(key, *kept);
  }
  return values;
}

std::error_code KeptPreferences::apply(std::span<const PreferenceChange> changes) {
  const bool isReached = reaches();
  std::vector<PreferenceChange> pending;
  for (const PreferenceChange& change : changes) kept_.insert_or_assign(change.key, change.value);
  pending.reserve(kept_.size());
  for (const auto& [key, kept] : kept_) pending.push_back({.key = key, .value = kept});
  if (!isReached || store_.apply(pending)) return {};
  for (auto& [key, kept] : kept_) read_.insert_or_assign(key, std::move(kept));
  kept_.clear();
  return {};
}

}  // namespace quibbly
