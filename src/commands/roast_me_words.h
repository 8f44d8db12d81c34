#pragma once

#include <expected>
#include <span>
#include <string>

namespace quibbly {

/// What a call of the roast-me program asks for.
struct RoastMeWords {
  /// Print the roast.
  bool verbose = false;
  /// What to print in place of roasting, help or version; empty to roast.
  std::string text;
};

/// Reads the words after the program's name. The error is one line for the user that says what is wrong with them.
[[nodiscard]] std::expected<RoastMeWords, std::string> parseRoastMeWords(std::span<const char* const> words);

}  // namespace quibbly
