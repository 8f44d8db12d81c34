#include "platform/printable.h"

#include <algorithm>
#include <array>

namespace quibbly {
namespace {

/// Sequences of UTF-8 that show nothing and do something, by their first and last member; members differ in the last byte.
struct Steering {
  std::string_view first;
  unsigned char last;
};
// NOLINTBEGIN(misc-misleading-bidirectional): these are the characters that are kept off the screen
constexpr auto steering = std::to_array<Steering>({
    {.first = "\xc2\x80", .last = 0x9f},      // the second set of control characters
    {.first = "\xe2\x80\x8e", .last = 0x8f},  // direction marks
    {.first = "\xe2\x80\xa8", .last = 0xae},  // line and paragraph separators, embeddings and overrides of direction
    {.first = "\xe2\x81\xa6", .last = 0xa9},  // isolates of direction
});
// NOLINTEND(misc-misleading-bidirectional)

bool isControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7f;
}

/// How many bytes at the start of the text are to become one space; 0 when it starts with something to be seen.
std::size_t steeringLength(std::string_view text) {
  if (isControl(text.front())) return 1;
  for (const auto& [first, last] : steering) {
    if (text.size() < first.size() || !text.starts_with(first.substr(0, first.size() - 1))) continue;
    const auto byte = static_cast<unsigned char>(text[first.size() - 1]);
    if (byte >= static_cast<unsigned char>(first.back()) && byte <= last) return first.size();
  }
  return 0;
}

}  // namespace

std::string printable(std::string_view text) {
  std::string shown;
  while (!text.empty()) {
    const std::size_t steers = steeringLength(text);
    shown += steers > 0 ? ' ' : text.front();
    text.remove_prefix(std::max<std::size_t>(steers, 1));
  }
  return shown;
}

}  // namespace quibbly
