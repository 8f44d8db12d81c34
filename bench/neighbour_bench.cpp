// What else a user could have on the desktop, measured as quibbly is, where it is installed.

#include <array>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>

#include <benchmark/benchmark.h>

#include "comparison.h"
#include "desk.h"

namespace quibbly::bench {
namespace {

/// Two system monitors, and a program of Qt that lives in the tray.
constexpr auto neighbours = std::to_array<const char*>({"conky", "gkrellm", "copyq"});

bool isInstalled(const char* program) {
  std::istringstream path(std::getenv("PATH"));
  std::error_code ignored;
  for (std::string directory; std::getline(path, directory, ':');) {
    if (std::filesystem::exists(std::filesystem::path(directory) / program, ignored)) return true;
  }
  return false;
}

void idleOnDesktop(benchmark::State& state, const char* program) {
  for (auto _ : state) {
    Desk desk;
    desk.start(program);
    if (!desk.idle(state, program)) state.SetLabel("not measured: the program ended");
  }
}

const bool registered = [] {
  for (const char* const program : neighbours) {
    if (!isInstalled(program)) continue;
    benchmark::RegisterBenchmark(program, idleOnDesktop, program)->UseManualTime()->Iterations(1);
    const Beside processor("tray", program);
    const Beside wakeUps("trayWakeUps", std::string(program) + "WakeUps", Unit::perSecond);
    const Beside memory("trayMemory", std::string(program) + "Memory", Unit::bytes);
  }
  return true;
}();

}  // namespace
}  // namespace quibbly::bench
