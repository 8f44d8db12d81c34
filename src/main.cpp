#include <algorithm>
#include <span>

#include <QCoreApplication>

#include "commands/command_line.h"
#include "commands/machine_commands.h"
#include "commands/standard_streams.h"
#include "engine/placeholder_roast_engine.h"
#include "machine/machine.h"

namespace {

using namespace quibbly;

constexpr int outputFailed = 1;
constexpr int badCommandLine = 2;

std::string outputOf(const CommandLine& request) {
  Machine machine;
  const PlaceholderRoastEngine engine(machine.clock(), machine.random());
  return MachineCommands(machine.monitor(), engine).run(request);
}

}  // namespace

int main(int argc, char** argv) {
  prepareStandardStreams();
  const QCoreApplication application(argc, argv);
  const std::span<char*> words(argv, static_cast<std::size_t>(argc));
  const auto request = parseCommandLine({words.begin() + std::min(argc, 1), words.end()});
  if (!request) {
    complain(request.error());
    return badCommandLine;
  }
  if (const std::error_code error = printToStandardOutput(outputOf(*request))) {
    complain("cannot write to standard output: " + error.message());
    return outputFailed;
  }
  return 0;
}
