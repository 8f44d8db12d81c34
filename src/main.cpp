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

std::expected<void, Complaint> run(std::span<const char* const> words) {
  const auto request = parseCommandLine(words);
  if (!request) return std::unexpected(Complaint{.status = Complaint::badCommandLine, .line = request.error()});
  const auto output = outputOf(*request);
  if (!output) return std::unexpected(output.error());
  if (const std::error_code error = printToStandardOutput(*output)) {
    return std::unexpected(
        Complaint{.status = Complaint::failed, .line = "cannot write to standard output: " + error.message()});
  }
  return {};
}

int statusOf(const std::expected<void, Complaint>& outcome) {
  if (outcome) return 0;
  complain(outcome.error().line);
  return outcome.error().status;
}

}  // namespace

int main(int argc, char** argv) {
  prepareStandardStreams();
  try {
    const std::span<char*> words(argv, static_cast<std::size_t>(argc));
    return statusOf(run({words.begin() + std::min(argc, 1), words.end()}));
  } catch (const std::exception& error) {
    // Nothing of ours throws; what comes here is a machine without memory or threads.
    complain(error.what());
    return Complaint::failed;
  }
}
