#include "platform/linux/systemd_units.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <ranges>
#include <vector>

namespace quibbly::linux_services {
namespace {

bool cutSuffix(std::string_view& text, std::string_view suffix) {
  if (!text.ends_with(suffix)) return false;
  text.remove_suffix(suffix.size());
  return true;
}

/// The byte that `\xNN` at the text's start stands for; absent for anything else, and for NUL, which no name holds.
std::optional<char> escapedByte(std::string_view text) {
  constexpr std::size_t length = 4;
  if (!text.starts_with("\\x") || text.size() < length) return std::nullopt;
  std::uint8_t byte = 0;
  const char* const end = text.data() + length;
  if (std::from_chars(text.data() + 2, end, byte, 16).ptr != end || byte == 0) return std::nullopt;
  return static_cast<char>(byte);
}

std::optional<std::string> unescaped(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const bool escape = text.front() == '\\';
    const auto byte = escape ? escapedByte(text) : text.front();
    if (!byte) return std::nullopt;
    plain += *byte;
    text.remove_prefix(escape ? 4 : 1);
  }
  return plain;
}

/// The id in app[-launcher]-ID. Dashes within a field are escaped, so a dash always parts two fields.
std::optional<std::string> lastField(std::string_view text) {
  std::vector<std::string_view> fields;
  for (const auto part : std::views::split(text, '-')) fields.emplace_back(part.begin(), part.end());
  const bool isApplication = (fields.size() == 2 || fields.size() == 3) && fields.front() == "app";
  if (!isApplication || fields.back().empty()) return std::nullopt;
  return unescaped(fields.back());
}

std::optional<std::string> scopeId(std::string_view text) {
  const auto random = text.rfind('-');
  if (random == std::string_view::npos || random + 1 == text.size()) return std::nullopt;
  return lastField(text.substr(0, random));
}

std::optional<std::string> serviceId(std::string_view text) {
  const auto instance = text.find('@');
  if (instance == std::string_view::npos) return lastField(text);
  // Started by the session and not by the user; most of these never show a window.
  if (text.substr(instance + 1) == "autostart") return std::nullopt;
  return lastField(text.substr(0, instance));
}

bool isUuid(std::string_view text) {
  constexpr std::string_view pattern = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
  constexpr std::string_view digits = "0123456789abcdefABCDEF";
  return std::ranges::equal(text, pattern, [digits](char c, char wanted) {
    return wanted == '-' ? c == '-' : digits.find(c) != std::string_view::npos;
  });
}

/// The id in NAME.APP-UUID or NAME.APP.UUID.
std::optional<std::string> snapId(std::string_view text) {
  constexpr std::size_t uuidLength = 36;
  if (text.size() <= uuidLength || !isUuid(text.substr(text.size() - uuidLength))) return std::nullopt;
  text.remove_suffix(uuidLength);
  if (!cutSuffix(text, "-") && !cutSuffix(text, ".")) return std::nullopt;
  // A second dot: a hook of the snap, which the package system runs by itself.
  const auto dot = text.find('.');
  if (dot == std::string_view::npos || text.find('.', dot + 1) != std::string_view::npos) return std::nullopt;
  const auto name = unescaped(text.substr(0, dot));
  const auto application = unescaped(text.substr(dot + 1));
  if (!name || !application || name->empty() || application->empty()) return std::nullopt;
  return *name + "_" + *application;
}

}  // namespace

std::optional<std::string> applicationIdOfUnit(std::string_view unit) {
  constexpr std::string_view snap = "snap.";
  if (cutSuffix(unit, ".scope")) return unit.starts_with(snap) ? snapId(unit.substr(snap.size())) : scopeId(unit);
  if (cutSuffix(unit, ".service")) return serviceId(unit);
  return std::nullopt;
}

}  // namespace quibbly::linux_services
