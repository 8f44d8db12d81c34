#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/preference_store.h"
#include "platform/user_text.h"
#include "platform/wall_clock.h"
#include "records/last_roast.h"
#include "shared/shared_storage.h"
#include "shared/widget_snapshot.h"

namespace quibbly {

/// Publishes a roast and its figures for widgets, three times over: in the group's preference store, in the text file and
/// in the JSON files. A reader tries them in that order until one yields a usable copy, so a damaged one is no loss.
///
/// No operation reports an error: what cannot be written is skipped, what cannot be read is absent. Any one thread.
class AppGroupStore {
 public:
  /// A roast as a widget shows it.
  struct WidgetPayload {
    /// Never empty.
    std::string text;
    /// Empty when unknown.
    std::string category;
    /// Raw text of the mood's label; empty when unknown.
    std::string mood;
    /// The time of reading when unknown.
    Date createdAt;
    /// Fraction 0 to 1 of memory in use.
    std::optional<double> ram;
    std::optional<std::int64_t> apps;
    /// Absent also when the stored uptime is no number of days.
    std::optional<std::int64_t> uptimeDays;
    std::optional<std::string> thermal;
    /// Percent.
    std::optional<std::int64_t> battery;
    /// Changes with every publication.
    std::string generation;

    bool operator==(const WidgetPayload&) const = default;
  };

  AppGroupStore(const SharedStorage& storage, PreferenceStore& preferences, const WallClock& clock,
                SecureRandom& random, const UserText& userText)
      : storage_(storage), preferences_(preferences), clock_(clock), random_(random), userText_(userText) {}

  /// A reader that looks meanwhile may see the new preferences with the old files, or the reverse; each is whole.
  void publish(const LastRoast& roast, const WidgetSnapshot& snapshot);

  /// Publishes figures before there is any roast. When the group's preferences take nothing, they go into the other
  /// ones.
  void publishSnapshot(const WidgetSnapshot& snapshot, PreferenceStore& otherwise);

  /// What was published last; absent when nothing usable was.
  [[nodiscard]] std::optional<LastRoast> lastRoast();
  [[nodiscard]] std::optional<WidgetSnapshot> widgetSnapshot();
  [[nodiscard]] std::optional<WidgetPayload> widgetPayload();

 private:
  template <typename Record>
  [[nodiscard]] std::optional<Record> published(std::string_view key, std::string_view fileName);
  [[nodiscard]] std::optional<WidgetPayload> payloadFromPreferences();
  [[nodiscard]] std::optional<std::string> preferredText(std::string_view key);
  [[nodiscard]] std::optional<WidgetPayload> payloadFromText() const;
  [[nodiscard]] std::optional<WidgetPayload> payloadFromFiles() const;

  const SharedStorage& storage_;
  PreferenceStore& preferences_;
  const WallClock& clock_;
  SecureRandom& random_;
  const UserText& userText_;
};

}  // namespace quibbly
