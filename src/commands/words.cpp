#include "commands/words.h"

#include <vector>

#include <CLI/CLI.hpp>

#include "platform/printable.h"

namespace quibbly {

std::expected<std::string, std::string> readWords(CLI::App& app, std::span<const char* const> words) {
  try {
    // The parser takes the words from the back.
    std::vector<std::string> reversed(words.rbegin(), words.rend());
    app.parse(reversed);
    return "";
  } catch (const CLI::CallForHelp&) {
    return app.help();
  } catch (const CLI::CallForVersion&) {
    return app.version() + "\n";
  } catch (const CLI::ParseError& error) {
    return std::unexpected(printable(error.what()) + ". Say '" + app.get_name() + " --help' for the words that are.");
  }
}

}  // namespace quibbly
