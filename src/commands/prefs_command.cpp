#include "commands/prefs_command.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <system_error>
#include <utility>

#include "app/preference_keys.h"
#include "platform/printable.h"

namespace quibbly {
namespace {

using Type = PrefsRequest::Type;

/// In the order of the alternatives of `PreferenceValue`.
constexpr auto typeNames = std::to_array<std::string_view>({"int", "double", "string", "data"});
static_assert(typeNames.size() == std::variant_size_v<PreferenceValue>);

template <typename Number>
std::optional<PreferenceValue> parsed(std::string_view text) {
  Number number{};
  const char* const start = text.data();
  const char* const end = start + text.size();
  const auto [parsedTo, error] = std::from_chars(start, end, number);
  if (error != std::errc{} || parsedTo != end) return std::nullopt;
  // Nothing that is counted here is infinite, and what is no number cannot be stored as one.
  if (!std::isfinite(static_cast<double>(number))) return std::nullopt;
  return number;
}

std::optional<PreferenceValue> parsedBoolean(std::string_view text) {
  constexpr auto words = std::to_array<std::pair<std::string_view, std::int64_t>>(
      {{"true", 1}, {"yes", 1}, {"1", 1}, {"false", 0}, {"no", 0}, {"0", 0}});
  const auto* const found = std::ranges::find(words, text, &std::pair<std::string_view, std::int64_t>::first);
  if (found == words.end()) return std::nullopt;
  return found->second;
}

std::optional<PreferenceValue> parsedAs(Type type, const std::string& text) {
  switch (type) {
    case Type::integer:
      return parsed<std::int64_t>(text);
    case Type::real:
      return parsed<double>(text);
    case Type::boolean:
      return parsedBoolean(text);
    case Type::text:
      return text;
  }
  return std::nullopt;
}

std::string_view expectation(Type type) {
  switch (type) {
    case Type::integer:
      return "a whole number, such as 3";
    case Type::real:
      return "a number, such as 0.5";
    case Type::boolean:
      return "true or false";
    case Type::text:
      return "a text";
  }
  return "";
}

/// The types that the application reads its preferences as, whatever a value looks like.
std::optional<Type> knownTypeOf(std::string_view key) {
  constexpr auto types = std::to_array<std::pair<std::string_view, Type>>({
      {preference_keys::dailyRoastLimit, Type::integer},
      {preference_keys::roastDayCount, Type::integer},
      {preference_keys::roastDayStamp, Type::text},
      {preference_keys::pauseRoastsUntil, Type::real},
      {preference_keys::hideFromDock, Type::boolean},
      {preference_keys::randomRoastIntervalMinutes, Type::integer},
      {preference_keys::intensity, Type::text},
      {preference_keys::allowHarshLanguage, Type::boolean},
      {preference_keys::includeAppNames, Type::boolean},
  });
  const auto* const found = std::ranges::find(types, key, &std::pair<std::string_view, Type>::first);
  if (found == types.end()) return std::nullopt;
  return found->second;
}

Type lookOf(const std::string& text) {
  if (parsed<std::int64_t>(text)) return Type::integer;
  if (parsed<double>(text)) return Type::real;
  return text == "true" || text == "false" ? Type::boolean : Type::text;
}

/// The type that a value has already; bytes are nothing that can be typed in.
std::optional<Type> typeOf(const std::optional<PreferenceValue>& value) {
  constexpr auto types = std::to_array<std::optional<Type>>({Type::integer, Type::real, Type::text, std::nullopt});
  return value ? types[value->index()] : std::nullopt;
}

std::string shown(double number) {
  std::array<char, 32> digits{};
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  return {digits.data(), static_cast<std::size_t>(end - digits.data())};
}
std::string shown(std::int64_t number) { return std::to_string(number); }
std::string shown(const std::string& text) { return printable(text); }
std::string shown(const Bytes& bytes) { return std::to_string(bytes.size()) + " bytes"; }

std::string shown(const PreferenceValue& value) {
  return std::visit([](const auto& alternative) { return shown(alternative); }, value);
}

std::unexpected<Complaint> unknownKey(const std::string& key) {
  return std::unexpected(
      Complaint{.status = Complaint::badCommandLine,
                .line = "no preference is called '" + printable(key) + "'; 'quibbly prefs' lists those that are"});
}

std::unexpected<Complaint> unreadable(const std::error_code& error) {
  return std::unexpected(Complaint{.line = "the preferences cannot be read: " + error.message()});
}

std::expected<std::string, Complaint> changed(const std::error_code& error) {
  if (error)
    return std::unexpected(
        Complaint{.status = Complaint::failed, .line = "the preference could not be stored: " + error.message()});
  return "";
}

}  // namespace

std::expected<std::string, Complaint> PrefsCommand::run(const PrefsRequest& request) {
  if (!store_.open()) {
    return std::unexpected(Complaint{.status = Complaint::failed, .line = "the preferences cannot be opened"});
  }
  if (!request.key) return list();
  if (request.remove) return remove(*request.key);
  return request.value ? set(*request.key, *request.value, request.type) : show(*request.key);
}

std::expected<std::string, Complaint> PrefsCommand::list() {
  const auto values = store_.all();
  if (!values) return unreadable(values.error());
  std::size_t longestKey = 0;
  std::size_t longestType = 0;
  for (const auto& [key, value] : *values) {
    longestKey = std::max(longestKey, printable(key).size());
    longestType = std::max(longestType, typeNames[value.index()].size());
  }
  std::string text;
  for (const auto& [key, value] : *values) {
    const std::string_view type = typeNames[value.index()];
    const std::string name = printable(key);
    text.append(name).append(longestKey + 2 - name.size(), ' ');
    text.append(type).append(longestType + 2 - type.size(), ' ');
    text.append(shown(value)).append("\n");
  }
  return text;
}

std::expected<std::string, Complaint> PrefsCommand::show(const std::string& key) {
  const auto found = store_.read(key);
  if (!found) return unreadable(found.error());
  const std::optional<PreferenceValue>& value = *found;
  if (!value) return unknownKey(key);
  return shown(*value) + "\n";
}

std::expected<std::string, Complaint> PrefsCommand::set(const std::string& key, const std::string& text,
                                                        std::optional<Type> meant) {
  if (!meant) meant = knownTypeOf(key);
  const auto found = store_.read(key);
  if (!found) return unreadable(found.error());
  const std::optional<PreferenceValue>& before = *found;
  if (!meant && before && std::holds_alternative<Bytes>(*before)) {
    return std::unexpected(Complaint{
        .status = Complaint::badCommandLine,
        .line = "'" + printable(key) + "' holds data, which no text replaces; name a type to replace it all the same"});
  }
  if (!meant) meant = typeOf(before);
  const Type type = meant.value_or(lookOf(text));
  auto value = parsedAs(type, text);
  if (!value) {
    return std::unexpected(Complaint{.status = Complaint::badCommandLine,
                                     .line = "'" + printable(text) + "' will not do for '" + printable(key) +
                                             "': it takes " + std::string(expectation(type))});
  }
  return changed(store_.set(key, std::move(*value)));
}

std::expected<std::string, Complaint> PrefsCommand::remove(const std::string& key) {
  const auto found = store_.read(key);
  if (!found) return unreadable(found.error());
  if (!*found) return unknownKey(key);
  return changed(store_.remove(key));
}

}  // namespace quibbly
