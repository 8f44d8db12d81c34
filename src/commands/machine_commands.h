#pragma once

#include <string>

#include "commands/command_line.h"
#include "engine/placeholder_roast_engine.h"
#include "monitor/system_monitor.h"

namespace quibbly {

/// The commands that look at the machine once and print what they saw.
class MachineCommands {
 public:
  MachineCommands(SystemMonitor& monitor, const PlaceholderRoastEngine& engine) : monitor_(monitor), engine_(engine) {}

  /// What `roast` or `sample` prints. Takes two samples a quarter of a second apart: a load needs both.
  [[nodiscard]] std::string run(const CommandLine& request);

 private:
  SystemMonitor& monitor_;
  const PlaceholderRoastEngine& engine_;
};

}  // namespace quibbly
