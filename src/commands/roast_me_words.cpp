#include "commands/roast_me_words.h"

#include <utility>

#include <CLI/CLI.hpp>

#include "commands/words.h"

namespace quibbly {

std::expected<RoastMeWords, std::string> parseRoastMeWords(std::span<const char* const> words) {
  RoastMeWords request;
  CLI::App app("Makes a roast from what quibbly published last, for widgets and for quibbly to show.",
               "quibbly-roast-me");
  app.set_version_flag("--version", "quibbly " QUIBBLY_VERSION);
  app.add_flag("--verbose", request.verbose, "Print the roast")->disable_flag_override();
  auto text = readWords(app, words);
  if (!text) return std::unexpected(std::move(text.error()));
  request.text = std::move(*text);
  return request;
}

}  // namespace quibbly
