#include <algorithm>
#include <exception>
#include <expected>
#include <filesystem>
#include <span>
#include <system_error>

#include "commands/autostart_command.h"
#include "commands/command_line.h"
#include "commands/complaint.h"
#include "commands/machine_commands.h"
#include "commands/prefs_command.h"
#include "engine/placeholder_roast_engine.h"
#include "machine/environment.h"
#include "machine/machine.h"
#include "platform/linux/standard_streams.h"
#include "run_application.h"
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
  if (request.command == CommandLine::Command::autostart) {
    std::error_code error;
    const auto ownProgram = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) return std::unexpected(Complaint{.line = "cannot tell where quibbly is: " + error.message()});
    return AutostartCommand(machine.files(), configHome(), ownProgram).run(request.startsAtLogin);
  }
  const PlaceholderRoastEngine engine(machine.clock(), machine.random());
  const SharedStorage storage(machine.container(), machine.files(), machine.random());
  const RecentRoasts recentRoasts(storage);
  return MachineCommands(machine.monitor(), engine, recentRoasts).run(request);
}

int run(int argc, char** argv) {
  const std::span<char*> all(argv, static_cast<std::size_t>(argc));
  const auto request = parseCommandLine({all.begin() + std::min(argc, 1), all.end()});
  if (!request) {
    complain(request.error());
    return Complaint::badCommandLine;
  }
  if (request->command == CommandLine::Command::run) return runApplication(argc, argv, *request);
  const auto output = outputOf(*request);
  if (!output) {
    complain(output.error().line);
    return output.error().status;
  }
  return printOrComplain(*output) ? 0 : Complaint::failed;
}

}  // namespace

int main(int argc, char** argv) {
  prepareStandardStreams("quibbly");
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    // Nothing of ours throws; what comes here is a machine without memory or threads.
    complain(error.what());
    return Complaint::failed;
  }
}
