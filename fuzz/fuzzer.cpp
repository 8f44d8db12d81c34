#include "fuzz/fuzzer.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <iostream>

namespace quibbly::fuzz {

void demand(bool holds, const char* promise) {
  if (holds) return;
  std::cerr << "Broken promise: " << promise << '\n';
  std::abort();
}

std::vector<std::string_view> partsOf(std::string_view input, std::size_t count) {
  std::vector<std::string_view> parts(count);
  for (std::string_view& part : parts) {
    part = input.substr(0, input.find('\f'));
    input.remove_prefix(std::min(part.size() + 1, input.size()));
  }
  return parts;
}

double numberIn(std::string_view text) {
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace quibbly::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quibbly::fuzz::tryInput({reinterpret_cast<const char*>(data), size});
  return 0;
}
