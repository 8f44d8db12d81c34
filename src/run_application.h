#pragma once

#include "commands/command_line.h"

namespace quibbly {

/// Runs quibbly until the user or the system ends it, or hands the request over to the quibbly that runs already. Gives the
/// program's exit status. To be called before any thread is started.
[[nodiscard]] int runApplication(int argc, char** argv, const CommandLine& request);

}  // namespace quibbly
