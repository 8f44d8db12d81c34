#include <array>
#include <optional>
#include <pty.h>
#include <thread>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include "comparison.h"
#include "running_program.h"

namespace quibbly::bench {
namespace {

/// A program on a terminal of its own, which nobody types at and whose output goes nowhere.
class OnTerminal {
 public:
  OnTerminal(const char* program, const char* argument, const MemoryHome& home) {
    int terminal = -1;
    const winsize size{.ws_row = 24, .ws_col = 80, .ws_xpixel = 0, .ws_ypixel = 0};
    const pid_t child = ::forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
      home.enter();
      ::execl(program, program, argument, nullptr);
      ::_exit(127);
    }
    program_.emplace(child);
    drain_ = std::jthread([terminal] {
      std::array<char, 4096> output;
      while (::read(terminal, output.data(), output.size()) > 0) {
      }
      ::close(terminal);
    });
  }

  [[nodiscard]] Use use() const { return program_->use(); }

 private:
  std::jthread drain_;
  std::optional<RunningProgram> program_;  // ends before the thread that reads its output
};

/// What it used in a minute in which nobody asked it for anything.
struct IdleMinute {
  Use quibbly;
  Use bare;
};

/// Both beside one another: what disturbs the machine disturbs both.
IdleMinute idleMinute() {
  const MemoryHome home;
  const auto container = home.path() / "group.org.quibbly";
  const OnTerminal quibbly(QUIBBLY_PROGRAM, "--terminal", home);
  const OnTerminal bare(BARE_IDLE_PROGRAM, container.c_str(), home);
  std::this_thread::sleep_for(untilSettled);
  const IdleMinute before{quibbly.use(), bare.use()};
  std::this_thread::sleep_for(idlePeriod);
  return {difference(before.quibbly, quibbly.use()), difference(before.bare, bare.use())};
}

const IdleMinute& theIdleMinute() {
  static const IdleMinute minute = idleMinute();
  return minute;
}

void tell(benchmark::State& state, const Use& used, const char* name) {
  for (auto _ : state) tellIdle(state, used, name);
  if (!used.runs) state.SkipWithError("the program ended");
}

void bareIdle(benchmark::State& state) { tell(state, theIdleMinute().bare, "bareIdle"); }
BENCHMARK(bareIdle)->UseManualTime()->Iterations(1);

void idle(benchmark::State& state) { tell(state, theIdleMinute().quibbly, "idle"); }
BENCHMARK(idle)->UseManualTime()->Iterations(1);

const Compare idleBound("idle", "bareIdle", 1.0);
const Limit wakeUpsLimit("idleWakeUps", 0.2, Unit::perSecond);
const Beside wakeUps("idleWakeUps", "bareIdleWakeUps", Unit::perSecond);
const Beside threadWaits("idleThreadWaits", "bareIdleThreadWaits", Unit::perSecond);

}  // namespace
}  // namespace quibbly::bench
