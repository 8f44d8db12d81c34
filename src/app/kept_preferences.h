#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/preference_store.h"

namespace quibbly {

/// The preferences of a running program, which always take a value: what the store beneath does not take is kept until
/// the program ends, and tried again with the next change. Main thread.
class KeptPreferences final : public PreferenceStore {
 public:
  explicit KeptPreferences(PreferenceStore& store) : store_(store) {}

  [[nodiscard]] bool open() override { return true; }
  [[nodiscard]] std::optional<PreferenceValue> value(std::string_view key) override {
    const auto kept = kept_.find(key);
    return kept != kept_.end() ? kept->second : store_.value(key);
  }
  [[nodiscard]] std::map<std::string, PreferenceValue> all() override {
    auto values = store_.all();
    for (const auto& [key, kept] : kept_) {
      values.erase(key);
      if (kept) values.emplace(key, *kept);
    }
    return values;
  }
  [[nodiscard]] std::error_code apply(std::span<const PreferenceChange> changes) override {
    for (const PreferenceChange& change : changes) kept_.insert_or_assign(change.key, change.value);
    std::vector<PreferenceChange> pending;
    for (const auto& [key, kept] : kept_) pending.push_back({.key = key, .value = kept});
    if (!store_.apply(pending)) kept_.clear();
    return {};
  }
  void synchronize() override { store_.synchronize(); }

 private:
  PreferenceStore& store_;
  /// What the store did not take yet; absent was removed.
  std::map<std::string, std::optional<PreferenceValue>, std::less<>> kept_;
};

}  // namespace quibbly
