#include <algorithm>
#include <exception>
#include <span>

#include "commands/command_line.h"
#include "commands/machine_commands.h"
#include "commands/standard_streams.h"
#include "engine/placeholder_roast_engine.h"
#include "machine/machine.h"
#include "shared/recent_roasts.h"

namespace {

using namespace quibbly;

constexpr int failed = 1;
constexpr int badCommandLine = 2;

std::string outputOf(const CommandLine& request) {
  if (request.command == CommandLine::Command::showText) return request.text;
  Machine machine;
  const PlaceholderRoastEngine engine(machine.clock(), machine.random());
  const SharedStorage storage(machine.container(), machine.files(), machine.random());
  const RecentRoasts recentRoasts(storage);
  return MachineCommands(machine.monitor(), engine, recentRoasts).run(request);
}

int run(std::span<const char* const> words) {
  const auto request = parseCommandLine(words);
  if (!request) {
    complain(request.error());
    return badCommandLine;
  }
  if (const std::error_code error = printToStandardOutput(outputOf(*request))) {
    complain("cannot write to standard output: " + error.message());
    return failed;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  prepareStandardStreams();
  try {
    const std::span<char*> words(argv, static_cast<std::size_t>(argc));
    return run({words.begin() + std::min(argc, 1), words.end()});
  } catch (const std::exception& error) {
    // Nothing of ours throws; what comes here is a machine without memory or threads.
    complain(error.what());
    return failed;
  }
}
