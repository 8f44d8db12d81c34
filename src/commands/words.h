#pragma once

#include <expected>
#include <span>
#include <string>

namespace CLI {
class App;
}

namespace quibbly {

/// Reads the words after a program's name into what `app` binds. Gives the text that they ask for (help or version), empty
/// for none; the error is one line for the user that says what is wrong with them.
[[nodiscard]] std::expected<std::string, std::string> readWords(CLI::App& app, std::span<const char* const> words);

}  // namespace quibbly
