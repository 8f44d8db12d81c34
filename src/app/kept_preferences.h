#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>

#include "platform/preference_store.h"

namespace quibbly {

/// The preferences of a running program, which always take a value, and never forget one while the program runs: what the
/// store beneath does not take is kept, and tried again with the next change; until then it stands before what another
/// program stores under that key. While a key cannot be read, what was read last holds. What was never read counts as
/// missing, and is looked for again before anything is stored: what is set meanwhile, of that key or of another that was
/// never read, gives way to what is found. Main thread.
class KeptPreferences final : public PreferenceStore {
 public:
  explicit KeptPreferences(PreferenceStore& store) : store_(store) {}

  [[nodiscard]] bool open() override { return true; }
  /// Never an error.
  [[nodiscard]] Reading read(std::string_view key) override;
  [[nodiscard]] Listing all() override;
  [[nodiscard]] std::error_code apply(std::span<const PreferenceChange> changes) override;
  void synchronize() override { store_.synchronize(); }

 private:
  using Values = std::map<std::string, std::optional<PreferenceValue>, std::less<>>;

  [[nodiscard]] bool reaches();

  PreferenceStore& store_;
  Values kept_;                                // what the store did not take yet; absent was removed
  Values read_;                                // as it was when it was read last
  std::set<std::string, std::less<>> unread_;  // what was to be read, or set blindly, and could never be read
};

}  // namespace quibbly
