#include "commands/command_line.h"

#include <vector>

#include <CLI/CLI.hpp>

#include "commands/printable.h"

namespace quibbly {
namespace {

constexpr const char* adviceOnWords = "Say 'quibbly --help' for the words that are.";

}  // namespace

std::expected<CommandLine, std::string> parseCommandLine(std::span<const char* const> arguments) {
  CommandLine request;
  CLI::App app("quibbly samples this computer and mocks its owner. Comedy, not diagnostics.", "quibbly");
  app.set_version_flag("--version", "quibbly " QUIBBLY_VERSION);
  app.require_subcommand(0, 1);
  const auto command = [&](const char* name, const char* description, CommandLine::Command meaning) {
    CLI::App* const word = app.add_subcommand(name, description);
    word->add_flag("--json", request.json, "Print one JSON object")->disable_flag_override();
    word->callback([&request, meaning] { request.command = meaning; });
  };
  command("roast", "Sample, score and print one line", CommandLine::Command::roast);
  command("sample", "Print the sample and the mood", CommandLine::Command::sample);

  try {
    // The parser takes the words from the back.
    std::vector<std::string> words(arguments.rbegin(), arguments.rend());
    app.parse(words);
    if (app.get_subcommands().empty())
      return std::unexpected("no command given; say 'quibbly roast' or 'quibbly sample'");
  } catch (const CLI::CallForHelp&) {
    request.text = app.help();
  } catch (const CLI::CallForVersion&) {
    request.text = app.version() + "\n";
  } catch (const CLI::ParseError& error) {
    return std::unexpected(printable(error.what()) + ". " + adviceOnWords);
  }
  return request;
}

}  // namespace quibbly
