#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <future>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include "bare_reads.h"
#include "comparison.h"
#include "machine/machine.h"

namespace quibbly::bench {
namespace {

using namespace std::chrono_literals;

constexpr int repetitions = 5;

void bareReads(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(readSample());
}
BENCHMARK(bareReads)->Repetitions(repetitions);

/// Samples asked for sixteen at a time: the price of a sample, not that of waking the monitor's thread, which a program
/// that samples every 15 seconds does not feel.
void capture(benchmark::State& state) {
  Machine machine;
  std::array<std::future<SystemSnapshot>, 16> samples;
  while (state.KeepRunningBatch(samples.size())) {
    for (auto& sample : samples) sample = machine.monitor().captureSnapshot();
    for (auto& sample : samples) benchmark::DoNotOptimize(sample.get());
  }
}
BENCHMARK(capture)->Repetitions(repetitions)->UseRealTime();
const Compare captureBound("capture", "bareReads", 2.0);

/// Processor time of a whole program, user and system, from exec to exit.
void programTime(benchmark::State& state, const char* program, const char* argument) {
  for (auto _ : state) {
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
    const auto seconds = [](const timeval& t) { return static_cast<double>(t.tv_sec) + 1e-6 * double(t.tv_usec); };
    state.SetIterationTime(seconds(usage.ru_utime) + seconds(usage.ru_stime));
  }
}

void roastCommand(benchmark::State& state) { programTime(state, QUIBBLY_PROGRAM, "roast"); }
BENCHMARK(roastCommand)->UseManualTime()->Iterations(5)->Repetitions(repetitions);

const Limit roastCommandLimit("roastCommand", 60ms);

}  // namespace
}  // namespace quibbly::bench
