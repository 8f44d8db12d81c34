#include "fuzz/bus_message.h"

#include <algorithm>
#include <cstdint>

namespace quibbly::fuzz {
namespace {

constexpr int deepest = 8;

/// The first type of the list with all that is inside it; empty when there is none that is whole.
std::string_view firstType(std::string_view types) {
  std::string closing;
  for (std::size_t i = 0; i < types.size(); ++i) {
    const char type = types[i];
    if (type == '(' || type == '{') {
      closing += type == '(' ? ')' : '}';
    } else if (type == ')' || type == '}') {
      if (closing.empty() || closing.back() != type || types[i - 1] == '(' || types[i - 1] == 'a') return {};
      closing.pop_back();
    }
    if (closing.empty() && type != 'a') return types.substr(0, i + 1);
  }
  return {};
}

bool appendInside(sd_bus_message* message, char kind, std::string_view inside, std::size_t times, Bytes& values,
                  int depth) {
  if (sd_bus_message_open_container(message, kind, std::string(inside).c_str()) < 0) return false;
  for (std::size_t i = 0; i < times; ++i) {
    if (!append(message, inside, values, depth + 1)) return false;
  }
  return sd_bus_message_close_container(message) >= 0;
}

bool appendBasic(sd_bus_message* message, char type, Bytes& values) {
  if (type == 's' || type == 'o' || type == 'g') {
    return sd_bus_message_append_basic(message, type, values.text().c_str()) >= 0;
  }
  std::uint64_t number = values.byte();
  number |= number << 56U;
  return sd_bus_message_append_basic(message, type, &number) >= 0;
}

bool appendOne(sd_bus_message* message, std::string_view type, Bytes& values, int depth) {
  constexpr std::size_t mostElements = 40;
  switch (type.front()) {
    case 'a':
      return appendInside(message, 'a', type.substr(1), values.byte() % mostElements, values, depth);
    case '(':
      return appendInside(message, 'r', type.substr(1, type.size() - 2), 1, values, depth);
    case '{':
      return appendInside(message, 'e', type.substr(1, type.size() - 2), 1, values, depth);
    case 'v': {
      const std::string held = values.text();
      return appendInside(message, 'v', held, 1, values, depth);
    }
    case 'h':  // a descriptor, which bytes do not make
      return false;
    default:
      return appendBasic(message, type.front(), values);
  }
}

}  // namespace

unsigned char Bytes::byte() {
  if (rest_.empty()) return 0;
  const char first = rest_.front();
  rest_.remove_prefix(1);
  return static_cast<unsigned char>(first);
}

std::string Bytes::text() {
  constexpr int often = 1000;
  const std::string_view line = rest_.substr(0, rest_.find('\n'));
  rest_.remove_prefix(std::min(line.size() + 1, rest_.size()));
  if (!line.starts_with('*')) return std::string(line.substr(0, line.find('\0')));
  std::string text;
  for (int i = 0; i < often; ++i) text += line.substr(1, 8);
  return text.substr(0, text.find('\0'));
}

bool append(sd_bus_message* message, std::string_view types, Bytes& values, int depth) {
  while (!types.empty() && depth < deepest) {
    const std::string_view type = firstType(types);
    if (type.empty() || !appendOne(message, type, values, depth)) return false;
    types.remove_prefix(type.size());
  }
  return types.empty();
}

}  // namespace quibbly::fuzz
