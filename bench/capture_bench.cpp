#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <future>
#include <limits>
#include <ranges>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include "bare_reads.h"
#include "comparison.h"
#include "machine/machine.h"
#include "running_program.h"

namespace quibbly::bench {
namespace {

using namespace std::chrono_literals;

constexpr int repetitions = 5;

void bareReads(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(readSample());
}
BENCHMARK(bareReads)->Repetitions(repetitions);

/// Samples asked for sixteen at a time, and the last one awaited first: the price of a sample, not that of waking a thread
/// for each, which a program that samples every 15 seconds does not feel.
void capture(benchmark::State& state) {
  Machine machine;
  std::array<std::future<SystemSnapshot>, 16> samples;
  while (state.KeepRunningBatch(samples.size())) {
    for (auto& sample : samples) sample = machine.monitor().captureSnapshot();
    for (auto& sample : std::views::reverse(samples)) benchmark::DoNotOptimize(sample.get());
  }
}
BENCHMARK(capture)->Repetitions(repetitions)->UseRealTime();
const Compare captureBound("capture", "bareReads", 2.0);

/// Processor time of a whole program, user and system, from exec to exit; and how long one waited for it, as a counter.
void programTime(benchmark::State& state, const char* program, const char* argument, const char* elapsed) {
  double fastest = std::numeric_limits<double>::max();
  for (auto _ : state) {
    const auto begin = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
      const int nowhere = ::open("/dev/null", O_WRONLY);
      ::dup2(nowhere, STDOUT_FILENO);
      ::execl(program, program, argument, nullptr);
      ::_exit(127);
    }
    int status = 0;
    struct rusage usage{};
    ::wait4(child, &status, 0, &usage);
    if (status != 0) {
      state.SkipWithError("the program failed");
      break;
    }
    fastest =
        std::min(fastest, std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin).count());
    const auto seconds = [](const timeval& t) { return static_cast<double>(t.tv_sec) + 1e-6 * double(t.tv_usec); };
    state.SetIterationTime(seconds(usage.ru_utime) + seconds(usage.ru_stime));
  }
  state.counters[elapsed] = fastest;
}

void roastCommand(benchmark::State& state) { programTime(state, QUIBBLY_PROGRAM, "roast", "roastCommandWait"); }
BENCHMARK(roastCommand)->UseManualTime()->Iterations(5)->Repetitions(repetitions);
const Limit roastCommandLimit("roastCommand", 60ms);

void roastCommandCold(benchmark::State& state) {
  if (!forgetFiles()) state.SetLabel(nothingForgotten);
  programTime(state, QUIBBLY_PROGRAM, "roast", "roastCommandColdWait");
}
BENCHMARK(roastCommandCold)->UseManualTime()->Iterations(1)->Repetitions(repetitions);
const Beside roastCommandColdWait("roastCommandColdWait", "roastCommandWait");

}  // namespace
}  // namespace quibbly::bench
