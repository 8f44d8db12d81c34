#pragma once

#include <expected>
#include <optional>
#include <string>

#include "commands/complaint.h"
#include "platform/preference_store.h"

namespace quibbly {

/// What `quibbly prefs` is asked to do: to list all, to show a key, to set it or to remove it.
struct PrefsRequest {
  enum class Type { integer, real, boolean, text };

  /// The store that widgets read in place of the application's own.
  bool group = false;
  std::optional<std::string> key;
  std::optional<std::string> value;
  /// How the value is meant; absent takes the type that quibbly reads the key as, else the one that it has, else
  /// the one that the value looks like.
  std::optional<Type> type;
  bool remove = false;

  bool operator==(const PrefsRequest&) const = default;
};

/// Lists, shows, sets and removes preferences, since nobody edits a database by hand.
class PrefsCommand {
 public:
  explicit PrefsCommand(PreferenceStore& store) : store_(store) {}

  /// What the command prints: rows "key  type  value" sorted by key, or one value, or nothing after a change. A complaint
  /// means that nothing was changed.
  [[nodiscard]] std::expected<std::string, Complaint> run(const PrefsRequest& request);

 private:
  [[nodiscard]] std::expected<std::string, Complaint> list();
  [[nodiscard]] std::expected<std::string, Complaint> show(const std::string& key);
  [[nodiscard]] std::expected<std::string, Complaint> set(const std::string& key, const std::string& text,
                                                          std::optional<PrefsRequest::Type> meant);
  [[nodiscard]] std::expected<std::string, Complaint> remove(const std::string& key);

  PreferenceStore& store_;
};

}  // namespace quibbly
