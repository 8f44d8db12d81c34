#include "platform/linux/text_fields.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace quibbly::linux_services {
namespace {

constexpr std::string_view whiteSpace = " \t\r\n\f\v";

template <typename Number>
std::optional<Number> parseWhole(std::string_view text) {
  Number value = 0;
  const char* const start = text.data();
  const char* const end = start + text.size();
  const auto [parsed, error] = std::from_chars(start, end, value);
  if (error != std::errc{} || parsed != end) return std::nullopt;
  return value;
}

}  // namespace

std::vector<std::string_view> fieldsOf(std::string_view text) {
  std::vector<std::string_view> fields;
  std::size_t start = text.find_first_not_of(whiteSpace);
  while (start != std::string_view::npos) {
    const std::size_t end = std::min(text.find_first_of(whiteSpace, start), text.size());
    fields.push_back(text.substr(start, end - start));
    start = text.find_first_not_of(whiteSpace, end);
  }
  return fields;
}

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(whiteSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(whiteSpace) - first + 1);
}

std::optional<std::int64_t> parseInteger(std::string_view text) { return parseWhole<std::int64_t>(text); }

std::optional<std::uint64_t> parseUnsigned(std::string_view text) { return parseWhole<std::uint64_t>(text); }

}  // namespace quibbly::linux_services
