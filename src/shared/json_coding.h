#pragma once

#include <concepts>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "records/raw_values.h"
#include "shared/iso8601.h"
#include "shared/record_fields.h"

/// Records as JSON: objects with sorted keys, enumerations as their raw values, dates as ISO 8601 in UTC with whole
/// seconds. Reading is strict: no number where a text is due, no fraction where an integer is due, no value out of range,
/// no unknown enumeration text. Unknown keys are ignored; of a key that stands twice the last value counts.
namespace quibbly {

enum class JsonError {
  /// Writing: the record holds a double that is infinite or not a number.
  notFinite,
  /// Reading: the text is no JSON, lacks a required key or holds a value of the wrong kind.
  notDecodable,
};

namespace detail {

template <typename Value>
struct IsOptional : std::false_type {};
template <typename Value>
struct IsOptional<std::optional<Value>> : std::true_type {};

template <typename Value>
struct IsList : std::false_type {};
template <typename Element>
struct IsList<std::vector<Element>> : std::true_type {};

}  // namespace detail

template <typename Value>
[[nodiscard]] nlohmann::json toJson(const Value& value) {
  if constexpr (HasFields<Value>) {
    nlohmann::json object = nlohmann::json::object();
    const auto put = [&](const auto& field) {
      const auto& member = value.*field.member;
      if constexpr (detail::IsOptional<std::remove_cvref_t<decltype(member)>>::value) {
        if (member) object[field.key] = toJson(*member);
      } else {
        object[field.key] = toJson(member);
      }
    };
    std::apply([&](const auto&... field) { (put(field), ...); }, recordFields<Value>);
    return object;
  } else if constexpr (HasRawValues<Value>) {
    return rawValue(value);
  } else if constexpr (std::same_as<Value, Date>) {
    return iso8601Text(value);
  } else {
    return value;
  }
}

/// The value that the JSON holds; absent when it is of any other kind.
template <typename Value>
[[nodiscard]] std::optional<Value> fromJson(const nlohmann::json& json);

namespace detail {

/// Reads one field; false when the record cannot be made without it.
template <typename Record, typename Member>
bool readField(const nlohmann::json& object, const Field<Record, Member>& field, Record& record) {
  const auto found = object.find(field.key);
  if constexpr (IsOptional<Member>::value) {
    if (found == object.end() || found->is_null()) return true;
    record.*field.member = fromJson<typename Member::value_type>(*found);
    return (record.*field.member).has_value();
  } else {
    if (found == object.end()) return false;
    auto value = fromJson<Member>(*found);
    if (value) record.*field.member = std::move(*value);
    return value.has_value();
  }
}

template <typename Record>
std::optional<Record> readRecord(const nlohmann::json& json) {
  Record record;
  const auto readAll = [&](const auto&... field) { return (readField(json, field, record) && ...); };
  if (!json.is_object() || !std::apply(readAll, recordFields<Record>)) return std::nullopt;
  return record;
}

template <typename List>
std::optional<List> readList(const nlohmann::json& json) {
  if (!json.is_array()) return std::nullopt;
  List list;
  for (const nlohmann::json& element : json) {
    auto value = fromJson<typename List::value_type>(element);
    if (!value) return std::nullopt;
    list.push_back(std::move(*value));
  }
  return list;
}

template <std::integral Integer>
std::optional<Integer> readInteger(const nlohmann::json& json) {
  if (json.is_number_unsigned()) {
    const auto value = json.get<std::uint64_t>();
    return std::in_range<Integer>(value) ? std::optional(static_cast<Integer>(value)) : std::nullopt;
  }
  if (!json.is_number_integer()) return std::nullopt;
  const auto value = json.get<std::int64_t>();
  return std::in_range<Integer>(value) ? std::optional(static_cast<Integer>(value)) : std::nullopt;
}

}  // namespace detail

template <typename Value>
std::optional<Value> fromJson(const nlohmann::json& json) {
  if constexpr (HasFields<Value>) {
    return detail::readRecord<Value>(json);
  } else if constexpr (detail::IsList<Value>::value) {
    return detail::readList<Value>(json);
  } else if constexpr (HasRawValues<Value>) {
    if (!json.is_string()) return std::nullopt;
    return fromRawValue<Value>(json.get_ref<const std::string&>());
  } else if constexpr (std::same_as<Value, Date>) {
    return json.is_string() ? dateFromIso8601(json.get_ref<const std::string&>()) : std::nullopt;
  } else if constexpr (std::same_as<Value, std::string>) {
    return json.is_string() ? std::optional(json.get<std::string>()) : std::nullopt;
  } else if constexpr (std::same_as<Value, bool>) {
    return json.is_boolean() ? std::optional(json.get<bool>()) : std::nullopt;
  } else if constexpr (std::integral<Value>) {
    return detail::readInteger<Value>(json);
  } else {
    static_assert(std::floating_point<Value>);
    return json.is_number() ? std::optional(json.get<Value>()) : std::nullopt;
  }
}

/// The JSON on one line, doubles so that they read back to the same value. Bytes that are no UTF-8 become U+FFFD.
[[nodiscard]] std::expected<std::string, JsonError> jsonText(const nlohmann::json& json);

/// The JSON of a text; absent when the text is none.
[[nodiscard]] std::optional<nlohmann::json> jsonFromText(std::string_view text);

template <HasFields Record>
[[nodiscard]] std::expected<std::string, JsonError> encodeRecord(const Record& record) {
  return jsonText(toJson(record));
}

template <HasFields Record>
[[nodiscard]] std::expected<Record, JsonError> decodeRecord(std::string_view text) {
  const auto json = jsonFromText(text);
  auto record = json ? fromJson<Record>(*json) : std::nullopt;
  if (!record) return std::unexpected(JsonError::notDecodable);
  return std::move(*record);
}

}  // namespace quibbly
