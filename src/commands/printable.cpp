#include "commands/printable.h"

#include <algorithm>

namespace quibbly {

std::string printable(std::string text) {
  std::ranges::replace_if(text, [](unsigned char c) { return c < 0x20 || c == 0x7f; }, ' ');
  return text;
}

}  // namespace quibbly
