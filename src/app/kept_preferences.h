#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/preference_store.h"

namespace quibbly {

/// The preferences of a running program, which always take a value, and never forget one while the program runs: what the
/// store beneath does not take is kept, and tried again with the next change; until then it stands before what another
/// program stores under that key. While the store cannot be opened, what was read last holds. What was set before it could
/// be opened for the first time gives way to what is stored. Main thread.
class KeptPreferences final : public PreferenceStore {
 public:
  explicit KeptPreferences(PreferenceStore& store) : store_(store) {}

  [[nodiscard]] bool open() override { return true; }
  [[nodiscard]] std::optional<PreferenceValue> value(std::string_view key) override;
  [[nodiscard]] std::map<std::string, PreferenceValue> all() override;
  [[nodiscard]] std::error_code apply(std::span<const PreferenceChange> changes) override;
  void synchronize() override { store_.synchronize(); }

 private:
  using Values = std::map<std::string, std::optional<PreferenceValue>, std::less<>>;

  [[nodiscard]] bool reaches();

  PreferenceStore& store_;
  bool wasReached_ = false;
  Values kept_;  // what the store did not take yet; absent was removed
  Values read_;  // as it was when it was read last
};

}  // namespace quibbly
