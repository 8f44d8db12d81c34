#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <variant>
#include <vector>

namespace quibbly {

using Bytes = std::vector<std::byte>;
using PreferenceValue = std::variant<std::int64_t, double, std::string, Bytes>;

/// One step of a change to a store: a key and its new value, or its removal.
struct PreferenceChange {
  std::string key;
  /// Absent removes the key.
  std::optional<PreferenceValue> value;
};

/// Typed values by key, shared with other processes. A store that cannot be opened tells nothing and takes nothing; it is
/// tried again at the next call. Calls from one thread.
class PreferenceStore {
 public:
  using Reading = std::expected<std::optional<PreferenceValue>, std::error_code>;
  using Listing = std::expected<std::map<std::string, PreferenceValue>, std::error_code>;

  virtual ~PreferenceStore() = default;

  /// Whether the store can be opened now.
  [[nodiscard]] virtual bool open() = 0;
  /// The value of a key; absent when there is none. An error when nobody can tell.
  [[nodiscard]] virtual Reading read(std::string_view key) = 0;
  /// Every key with its value. An error when nobody can tell.
  [[nodiscard]] virtual Listing all() = 0;
  /// Makes all changes, in order, or none.
  [[nodiscard]] virtual std::error_code apply(std::span<const PreferenceChange> changes) = 0;
  /// Makes sure that what was applied is seen by others, and what others applied is seen here.
  virtual void synchronize() = 0;

  /// The value of a key; absent when there is none that can be read.
  [[nodiscard]] std::optional<PreferenceValue> value(std::string_view key) { return read(key).value_or(std::nullopt); }
  /// The value of a key when it is of this type; absent otherwise.
  template <typename Value>
  [[nodiscard]] std::optional<Value> get(std::string_view key) {
    auto found = value(key);
    if (!found || !std::holds_alternative<Value>(*found)) return std::nullopt;
    return std::get<Value>(std::move(*found));
  }
  [[nodiscard]] bool contains(std::string_view key) { return value(key).has_value(); }
  [[nodiscard]] std::error_code set(std::string key, PreferenceValue newValue) {
    const PreferenceChange change{.key = std::move(key), .value = std::move(newValue)};
    return apply({&change, 1});
  }
  [[nodiscard]] std::error_code remove(std::string key) {
    const PreferenceChange change{.key = std::move(key), .value = std::nullopt};
    return apply({&change, 1});
  }
};

}  // namespace quibbly
