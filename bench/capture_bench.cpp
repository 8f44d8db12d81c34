#include <array>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <future>
#include <sys/resource.h>
#include <sys/statvfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include "comparison.h"
#include "machine/machine.h"

namespace quibbly::bench {
namespace {

using namespace std::chrono_literals;

constexpr int repetitions = 5;

void readWhole(const char* path) {
  std::array<char, 8192> buffer;
  const int file = ::open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0) return;
  while (::read(file, buffer.data(), buffer.size()) > 0) {
  }
  ::close(file);
}

void list(const char* path) {
  DIR* const directory = ::opendir(path);
  if (!directory) return;
  while (::readdir(directory)) {
  }
  ::closedir(directory);
}

/// The floor of any sample without a display: the bare system calls.
void bareReads(benchmark::State& state) {
  struct statvfs volume;
  for (auto _ : state) {
    readWhole("/proc/stat");
    readWhole("/proc/meminfo");
    benchmark::DoNotOptimize(::statvfs("/root", &volume));
    for (const char* path : {"/sys/class/power_supply", "/sys/class/hwmon", "/sys/class/thermal"}) list(path);
  }
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
