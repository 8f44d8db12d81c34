#pragma once

#include <string>

#include "commands/command_line.h"
#include "engine/placeholder_roast_engine.h"
#include "monitor/system_monitor.h"
#include "shared/recent_roasts.h"

namespace quibbly {

/// The commands that look at the machine once and print what they saw.
class MachineCommands {
 public:
  MachineCommands(SystemMonitor& monitor, const PlaceholderRoastEngine& engine, const RecentRoasts& recentRoasts)
      : monitor_(monitor), engine_(engine), recentRoasts_(recentRoasts) {}

  /// What `roast` or `sample` prints. Takes two samples a quarter of a second apart: a load needs both. A
  /// roast is remembered, so that it does not come again at once; nothing is published.
  [[nodiscard]] std::string run(const CommandLine& request);

 private:
  SystemMonitor& monitor_;
  const PlaceholderRoastEngine& engine_;
  const RecentRoasts& recentRoasts_;
};

}  // namespace quibbly
