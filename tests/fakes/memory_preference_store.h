#pragma once

#include <cmath>

#include "platform/preference_store.h"

namespace quibbly::fakes {

/// A store that lives as long as the test, and that the test can close.
class MemoryPreferenceStore : public PreferenceStore {
 public:
  bool opens = true;
  /// Whether changes are made; another process may keep the store locked.
  bool takes = true;
  int transactions = 0;

  [[nodiscard]] bool open() override { return opens; }
  [[nodiscard]] Reading read(std::string_view key) override {
    if (!opens) return std::unexpected(std::make_error_code(std::errc::io_error));
    const auto found = values_.find(std::string(key));
    return found != values_.end() ? std::optional(found->second) : std::nullopt;
  }
  [[nodiscard]] Listing all() override {
    if (!opens) return std::unexpected(std::make_error_code(std::errc::io_error));
    return values_;
  }
  [[nodiscard]] std::error_code apply(std::span<const PreferenceChange> changes) override {
    if (!opens || !takes) return std::make_error_code(std::errc::io_error);
    ++transactions;
    for (const PreferenceChange& change : changes) {
      const auto* const number = change.value ? std::get_if<double>(&*change.value) : nullptr;
      values_.erase(change.key);
      if (change.value && !(number && std::isnan(*number))) values_.emplace(change.key, *change.value);
    }
    return {};
  }
  void synchronize() override {}

 private:
  std::map<std::string, PreferenceValue> values_;
};

}  // namespace quibbly::fakes
