// What else a user could have on the desktop, measured as quibbly is, where it is installed.

#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <thread>

#include <benchmark/benchmark.h>

#include "comparison.h"
#include "fakes/x_server.h"
#include "running_program.h"

namespace quibbly::bench {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::seconds untilSettled = 10s;
constexpr std::chrono::seconds period = 60s;

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
    const fakes::XServer server;
    const MemoryHome home;
    std::filesystem::create_directories(home.path());
    const RunningProgram running(startOn(server.display(), home, program));
    std::this_thread::sleep_for(untilSettled);
    const Use before = running.use();
    std::this_thread::sleep_for(period);
    const Use used = difference(before, running.use());
    if (!used.runs) return state.SkipWithError("the program ended");
    state.SetIterationTime(used.processorSeconds);
    state.counters[std::string(program) + "Memory"] = running.proportionalSet();
  }
}

const bool registered = [] {
  for (const char* const program : neighbours) {
    if (!isInstalled(program)) continue;
    benchmark::RegisterBenchmark(program, idleOnDesktop, program)->UseManualTime()->Iterations(1);
    const Beside processor("tray", program);
    const Beside memory("trayMemory", std::string(program) + "Memory");
  }
  return true;
}();

}  // namespace
}  // namespace quibbly::bench
