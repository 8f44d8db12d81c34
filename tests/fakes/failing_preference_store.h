#pragma once

#include "fakes/faults.h"
#include "platform/preference_store.h"

namespace quibbly::fakes {

/// A store that cannot be opened, or whose file cannot be read or written, in the calls that fail.
class FailingPreferenceStore final : public PreferenceStore, public Faults {
 public:
  FailingPreferenceStore(PreferenceStore& working, const Faults* common) : Faults(common), working_(working) {}

  [[nodiscard]] bool open() override { return !fails() && working_.open(); }
  [[nodiscard]] Reading read(std::string_view key) override {
    if (fails()) return std::unexpected(failure());
    return working_.read(key);
  }
  [[nodiscard]] Listing all() override {
    if (fails()) return std::unexpected(failure());
    return working_.all();
  }
  [[nodiscard]] std::error_code apply(std::span<const PreferenceChange> changes) override {
    return fails() ? failure() : working_.apply(changes);
  }
  void synchronize() override { working_.synchronize(); }

  static std::error_code failure() { return std::make_error_code(std::errc::io_error); }

 private:
  PreferenceStore& working_;
};

}  // namespace quibbly::fakes
