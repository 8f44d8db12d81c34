#pragma once

#include <expected>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "records/last_roast.h"
#include "records/mac_mood.h"

namespace quibbly {

/// Records as JSON objects in the form in which they are stored: sorted keys, enumerations as their raw text, dates as
/// ISO 8601 in UTC, absent values left out.
[[nodiscard]] nlohmann::json jsonOf(const MacMood& mood);
[[nodiscard]] nlohmann::json jsonOf(const LastRoast& roast);

/// Sets `key` unless the value is absent.
template <typename Value>
void setIfPresent(nlohmann::json& object, const char* key, const std::optional<Value>& value) {
  if (value) object[key] = *value;
}

/// Why a value has no JSON text.
enum class JsonTextError {
  /// It holds a double that is infinite or not a number.
  notFinite,
};

/// The object on one line, doubles so that they read back to the same value. Bytes that are no UTF-8 become U+FFFD.
[[nodiscard]] std::expected<std::string, JsonTextError> jsonText(const nlohmann::json& object);

}  // namespace quibbly
