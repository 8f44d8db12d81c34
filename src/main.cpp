#include <algorithm>
#include <exception>
#include <expected>
#include <span>

#include "commands/command_line.h"
#include "commands/complaint.h"
#include "commands/machine_commands.h"
#include "commands/prefs_command.h"
#include "engine/placeholder_roast_engine.h"
#include "machine/machine.h"
#include "platform/linux/standard_streams.h"
#include "shared/recent_roasts.h"

namespace {

using namespace quibbly;
using namespace quibbly::linux_services;

std::expected<std::string, Complaint> outputOf(const CommandLine& request) {
  if (request.command == CommandLine::Command::showText) return request.text;
  Machine machine;
  if (request.command == CommandLine::Command::prefs) {
    return PrefsCommand(request.prefs.group ? machine.groupPreferences() : machine.preferences()).run(request.prefs);
  }
  const PlaceholderRoastEngine engine(machine.clock(), machine.random());
  const SharedStorage storage(machine.container(), machine.files(), machine.random());
  const RecentRoasts recentRoasts(storage);
  return MachineCommands(machine.monitor(), engine, recentRoasts).run(request);
}

int run(std::span<const char* const> words) {
  const auto request = parseCommandLine(words);
  if (!request) {
    complain(request.error());
    return Complaint::badCommandLine;
  }
  const auto output = outputOf(*request);
  if (!output) {
    complain(output.error().line);
    return output.error().status;
  }
  return printOrComplain(*output) ? 0 : Complaint::failed;
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
    return Complaint::failed;
  }
}
