#include "commands/command_line.h"

#include <utility>

#include <CLI/CLI.hpp>

#include "app/app_url.h"
#include "commands/words.h"
#include "platform/single_instance.h"

namespace quibbly {
namespace {

void addPrefs(CLI::App& app, CommandLine& request) {
  CLI::App* const prefs = app.add_subcommand("prefs", "List, show, set or remove preferences");
  PrefsRequest& asked = request.prefs;
  prefs->add_option("KEY", asked.key, "Show this preference, or set it to VALUE");
  CLI::Option* const value = prefs->add_option("VALUE", asked.value, "Its new value");
  const auto meaning = [&](const char* flag, const char* description, PrefsRequest::Type type) {
    return prefs->add_flag_callback(
                    flag, [&asked, type] { asked.type = type; }, description)
        ->needs(value)
        ->disable_flag_override();
  };
  CLI::Option* const types[] = {meaning("--int", "VALUE is a whole number", PrefsRequest::Type::integer),
                                meaning("--double", "VALUE is a number", PrefsRequest::Type::real),
                                meaning("--bool", "VALUE is true or false", PrefsRequest::Type::boolean),
                                meaning("--string", "VALUE is a text", PrefsRequest::Type::text)};
  for (CLI::Option* const one : types) {
    for (CLI::Option* const other : types) {
      if (one != other) one->excludes(other);
    }
  }
  prefs
      ->add_option_function<std::string>(
          "--remove",
          [&asked](const std::string& key) {
            asked.key = key;
            asked.remove = true;
          },
          "Remove this preference")
      ->type_name("KEY")
      ->excludes(prefs->get_option("KEY"));
  prefs->add_flag("--group", asked.group, "The preferences that widgets read")->disable_flag_override();
  prefs->callback([&request] { request.command = CommandLine::Command::prefs; });
}

void addAutostart(CLI::App& app, CommandLine& request) {
  CLI::App* const word = app.add_subcommand("autostart", "Say or set whether quibbly starts when you log in");
  word->add_option_function<std::string>(
          "SWITCH", [&request](const std::string& wanted) { request.startsAtLogin = wanted == "on"; }, "on or off")
      ->check(CLI::IsMember({"on", "off"}));
  word->callback([&request] { request.command = CommandLine::Command::autostart; });
}

CLI::Validator isOurs() {
  return {[](const std::string& word) {
            if (!AppURL::hasScheme(word)) return "'" + word + "' is neither a command nor a quibbly: URL";
            if (word.size() > SingleInstance::longestText)
              return "it is too long; " + std::to_string(SingleInstance::longestText) + " bytes are taken";
            return std::string();
          },
          "", "quibbly URL"};
}

}  // namespace

std::expected<CommandLine, std::string> parseCommandLine(std::span<const char* const> arguments) {
  CommandLine request;
  CLI::App app("quibbly samples this computer and mocks its owner. Comedy, not diagnostics.", "quibbly");
  app.set_version_flag("--version", "quibbly " QUIBBLY_VERSION);
  app.require_subcommand(0, 1);
  app.add_flag("--terminal", request.terminal, "Run in the terminal although there is a display")
      ->disable_flag_override();
  app.add_option("URL", request.urls, "Open these, here or in the quibbly that runs already")->check(isOurs());
  const auto command = [&](const char* name, const char* description, CommandLine::Command meaning) {
    CLI::App* const word = app.add_subcommand(name, description);
    word->add_flag("--json", request.json, "Print one JSON object")->disable_flag_override();
    word->callback([&request, meaning] { request.command = meaning; });
  };
  command("roast", "Sample, score and print one line", CommandLine::Command::roast);
  command("sample", "Print the sample and the mood", CommandLine::Command::sample);
  addPrefs(app, request);
  addAutostart(app, request);

  auto text = readWords(app, arguments);
  if (!text) return std::unexpected(std::move(text.error()));
  if (request.command != CommandLine::Command::run && (request.terminal || !request.urls.empty())) {
    return std::unexpected("--terminal and URLs do not go with a command; leave out the one or the other");
  }
  if (request.urls.size() > SingleInstance::mostAtOnce) {
    return std::unexpected("these are too many URLs; " + std::to_string(SingleInstance::mostAtOnce) +
                           " are opened at once");
  }
  if (!text->empty()) request.command = CommandLine::Command::showText;
  request.text = std::move(*text);
  return request;
}

}  // namespace quibbly
