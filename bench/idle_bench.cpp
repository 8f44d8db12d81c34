#include <array>
#include <chrono>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <optional>
#include <pty.h>
#include <string>
#include <thread>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include "comparison.h"
#include "fakes/process.h"

namespace quibbly::bench {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::seconds untilSettled = 10s;
constexpr std::chrono::seconds period = 60s;

/// What a program has used so far, or between two moments.
struct Use {
  bool runs = false;
  double processorSeconds = 0;
  /// How often one of its threads waited for something.
  double waits = 0;
};

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

 private:
  std::filesystem::path path_;
};

/// A program on a terminal of its own, which nobody types at and whose output goes nowhere.
class OnTerminal {
 public:
  OnTerminal(const char* program, const char* argument, const MemoryHome& home) {
    int terminal = -1;
    const winsize size{.ws_row = 24, .ws_col = 80, .ws_xpixel = 0, .ws_ypixel = 0};
    const pid_t child = ::forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
      for (const char* name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"}) ::setenv(name, home.path().c_str(), 1);
      ::execl(program, program, argument, nullptr);
      ::_exit(127);
    }
    process_.emplace(child);
    drain_ = std::jthread([terminal] {
      std::array<char, 4096> output;
      while (::read(terminal, output.data(), output.size()) > 0) {
      }
      ::close(terminal);
    });
  }
  OnTerminal(const OnTerminal&) = delete;
  OnTerminal& operator=(const OnTerminal&) = delete;
  ~OnTerminal() { (void)process_->end(SIGTERM); }

  [[nodiscard]] Use use() const {
    clockid_t clock{};
    timespec used{};
    if (::clock_getcpuclockid(process_->pid(), &clock) != 0 || ::clock_gettime(clock, &used) != 0) return {};
    return {.runs = process_->runs(),
            .processorSeconds = static_cast<double>(used.tv_sec) + 1e-9 * static_cast<double>(used.tv_nsec),
            .waits = waits()};
  }

 private:
  [[nodiscard]] double waits() const {
    double sum = 0;
    for (const auto& thread :
         std::filesystem::directory_iterator("/proc/" + std::to_string(process_->pid()) + "/task")) {
      std::ifstream status(thread.path() / "status");
      for (std::string word; status >> word;) {
        double count = 0;
        if (word == "voluntary_ctxt_switches:" && status >> count) sum += count;
      }
    }
    return sum;
  }

  std::optional<fakes::Process> process_;
  std::jthread drain_;
};

/// What it used in a minute in which nobody asked it for anything.
struct IdleMinute {
  Use quibbly;
  Use bare;
};

Use difference(const Use& before, const Use& after) {
  return {.runs = before.runs && after.runs,
          .processorSeconds = after.processorSeconds - before.processorSeconds,
          .waits = after.waits - before.waits};
}

/// Both beside one another: what disturbs the machine disturbs both.
IdleMinute idleMinute() {
  const MemoryHome home;
  const auto container = home.path() / "group.org.quibbly";
  const OnTerminal quibbly(QUIBBLY_PROGRAM, "--terminal", home);
  const OnTerminal bare(BARE_IDLE_PROGRAM, container.c_str(), home);
  std::this_thread::sleep_for(untilSettled);
  const IdleMinute before{quibbly.use(), bare.use()};
  std::this_thread::sleep_for(period);
  return {difference(before.quibbly, quibbly.use()), difference(before.bare, bare.use())};
}

const IdleMinute& theIdleMinute() {
  static const IdleMinute minute = idleMinute();
  return minute;
}

void tell(benchmark::State& state, const Use& used, const char* wakeUpsPerSecond) {
  for (auto _ : state) state.SetIterationTime(used.processorSeconds);
  if (!used.runs) return state.SkipWithError("the program ended");
  state.counters[wakeUpsPerSecond] = used.waits / std::chrono::duration<double>(period).count();
}

void bareIdle(benchmark::State& state) { tell(state, theIdleMinute().bare, "bareWakeUps"); }
BENCHMARK(bareIdle)->UseManualTime()->Iterations(1);

void idle(benchmark::State& state) { tell(state, theIdleMinute().quibbly, "idleWakeUps"); }
BENCHMARK(idle)->UseManualTime()->Iterations(1);

const Compare idleBound("idle", "bareIdle", 3.0);
const Limit wakeUpsLimit("idleWakeUps", 3.0);

}  // namespace
}  // namespace quibbly::bench
