#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

/// What the fuzzers have in common. Each is one program, which is given one input after the other and fails when one of
/// them crashes it, takes long, leaks, or breaks a promise that a header makes.
namespace quibbly::fuzz {

/// Tries one input; each fuzzer has its own.
void tryInput(std::string_view input);

/// Ends the fuzzer, which then keeps the input, unless the promise holds.
void demand(bool holds, const char* promise);

/// The input's parts, parted by form feeds: as many as asked for, the last ones empty when there are fewer.
[[nodiscard]] std::vector<std::string_view> partsOf(std::string_view input, std::size_t count);

/// The number that the text begins with, whatever follows; 0 when it begins with none.
[[nodiscard]] double numberIn(std::string_view text);

}  // namespace quibbly::fuzz
