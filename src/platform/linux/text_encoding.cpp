#include "platform/linux/text_encoding.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace quibbly::linux_services {
namespace {

struct Lead {
  unsigned char first, last;
  std::size_t length;
  // The second byte alone shuts out overlong forms, surrogates and what lies beyond U+10FFFF.
  unsigned char secondFirst, secondLast;
};

constexpr auto leads = std::to_array<Lead>({
    {0x00, 0x7F, 1, 0x00, 0x00},
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},
});

bool isBetween(char c, unsigned char first, unsigned char last) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= first && byte <= last;
}

/// How many bytes the text's first character takes; 0 when it is none.
std::size_t firstLength(std::string_view text) {
  const auto* const lead =
      std::ranges::find_if(leads, [&](const Lead& l) { return isBetween(text.front(), l.first, l.last); });
  if (lead == leads.end() || text.size() < lead->length) return 0;
  if (lead->length > 1 && !isBetween(text[1], lead->secondFirst, lead->secondLast)) return 0;
  const auto rest = text.substr(0, lead->length).substr(1);
  return std::ranges::all_of(rest, [](char c) { return isBetween(c, 0x80, 0xBF); }) ? lead->length : 0;
}

}  // namespace

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = firstLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

}  // namespace quibbly::linux_services
