#pragma once

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/types.h>
#include <unistd.h>

#include "fakes/process.h"

namespace quibbly::bench {

/// What a program has used so far, or between two moments.
struct Use {
  bool runs = false;
  double processorSeconds = 0;
  /// How often its main thread waited for something, and so was woken. What its other threads wait for belongs to that: they
  /// work when it asks them to.
  double waits = 0;
};

inline Use difference(const Use& before, const Use& after) {
  return {.runs = before.runs && after.runs,
          .processorSeconds = after.processorSeconds - before.processorSeconds,
          .waits = after.waits - before.waits};
}

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
            .waits = numberAfter(directory() / "status", "voluntary_ctxt_switches:")};
  }
  /// Bytes of memory, where what is shared counts in parts.
  [[nodiscard]] double proportionalSet() const { return 1024 * numberAfter(directory() / "smaps_rollup", "Pss:"); }

 private:
  [[nodiscard]] std::filesystem::path directory() const { return "/proc/" + std::to_string(process_.pid()); }

  fakes::Process process_;
};

}  // namespace quibbly::bench
