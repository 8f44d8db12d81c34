#pragma once

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/types.h>
#include <system_error>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include "fakes/process.h"

namespace quibbly::bench {

/// What a program has used so far, or between two moments.
struct Use {
  bool runs = false;
  double processorSeconds = 0;
  /// How often its main thread waited for something, and so was woken: a burst of work that the threads hand on among
  /// themselves is one wake-up, since the main thread sleeps at its end.
  double waits = 0;
  /// The same of all its threads that live.
  double threadWaits = 0;
};

inline Use difference(const Use& before, const Use& after) {
  return {.runs = before.runs && after.runs,
          .processorSeconds = after.processorSeconds - before.processorSeconds,
          .waits = after.waits - before.waits,
          .threadWaits = after.threadWaits - before.threadWaits};
}

/// How a program is measured that nobody asks for anything.
inline constexpr std::chrono::seconds untilSettled(10);
inline constexpr std::chrono::seconds idlePeriod(60);

/// What it used in that period, with its counters named after it.
inline void tellIdle(benchmark::State& state, const Use& used, const std::string& name) {
  const double seconds = std::chrono::duration<double>(idlePeriod).count();
  state.SetIterationTime(used.processorSeconds);
  state.counters[name + "WakeUps"] = used.waits / seconds;
  state.counters[name + "ThreadWaits"] = used.threadWaits / seconds;
}

/// Makes the kernel read every file, directory and inode from the disk again. Only root may, outside of a container.
inline bool forgetFiles() {
  ::sync();
  return static_cast<bool>(std::ofstream("/proc/sys/vm/drop_caches") << 3 << std::flush);
}
constexpr const char* nothingForgotten = "not measured: the kernel does not let us drop its caches";

/// A home in memory where there is such a place: a wait for a disk is no wake-up that a program chose.
class MemoryHome {
 public:
  MemoryHome() {
    const std::filesystem::path memory("/dev/shm");
    path_ = (std::filesystem::exists(memory) ? memory : std::filesystem::temp_directory_path()) /
            ("quibbly-idle." + std::to_string(::getpid()));
  }
  MemoryHome(const MemoryHome&) = delete;
  MemoryHome& operator=(const MemoryHome&) = delete;
  ~MemoryHome() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  /// In the child, before the program.
  void enter() const {
    for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME"}) ::setenv(name, path_.c_str(), 1);
  }

 private:
  std::filesystem::path path_;
};

/// The first number after a word of a file of /proc; 0 when it is not there.
inline double numberAfter(const std::filesystem::path& file, const std::string& wanted) {
  std::ifstream words(file);
  double number = 0;
  for (std::string word; words >> word;) {
    if (word == wanted && words >> number) return number;
  }
  return 0;
}

/// Starts a program on an X display.
inline pid_t startOn(const std::string& display, const MemoryHome& home, const char* program,
                     const char* argument = nullptr) {
  const pid_t child = ::fork();
  if (child == 0) {
    home.enter();
    ::setenv("DISPLAY", display.c_str(), 1);
    ::execlp(program, program, argument, nullptr);
    ::_exit(127);
  }
  return child;
}

/// A program that was started, and is told to end with this object.
class RunningProgram {
 public:
  explicit RunningProgram(pid_t pid) : process_(pid) {}
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;
  ~RunningProgram() { (void)process_.end(SIGTERM); }

  [[nodiscard]] Use use() const {
    clockid_t clock{};
    timespec used{};
    if (::clock_getcpuclockid(process_.pid(), &clock) != 0 || ::clock_gettime(clock, &used) != 0) return {};
    return {.runs = process_.runs(),
            .processorSeconds = static_cast<double>(used.tv_sec) + 1e-9 * static_cast<double>(used.tv_nsec),
            .waits = waitsOf(directory()),
            .threadWaits = waitsOfThreads()};
  }
  /// Bytes of memory, where what is shared counts in parts.
  [[nodiscard]] double proportionalSet() const { return 1024 * numberAfter(directory() / "smaps_rollup", "Pss:"); }

 private:
  [[nodiscard]] static double waitsOf(const std::filesystem::path& thread) {
    return numberAfter(thread / "status", "voluntary_ctxt_switches:");
  }
  [[nodiscard]] double waitsOfThreads() const {
    double waits = 0;
    std::error_code ignored;
    std::filesystem::directory_iterator threads(directory() / "task", ignored);
    for (; threads != std::filesystem::directory_iterator(); threads.increment(ignored))
      waits += waitsOf(threads->path());
    return waits;
  }
  [[nodiscard]] std::filesystem::path directory() const { return "/proc/" + std::to_string(process_.pid()); }

  fakes::Process process_;
};

}  // namespace quibbly::bench
