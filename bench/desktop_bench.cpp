#include <algorithm>
#include <chrono>
#include <fstream>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string_view>
#include <thread>
#include <unistd.h>
#include <utility>

#include <benchmark/benchmark.h>

#include "comparison.h"
#include "fakes/until.h"
#include "fakes/x11_desk.h"
#include "fakes/x_server.h"
#include "running_program.h"

namespace quibbly::bench {
namespace {

using namespace std::chrono_literals;
using fakes::X11Desk;

constexpr std::chrono::seconds untilSettled = 10s;
constexpr std::chrono::seconds period = 60s;
/// Two that come sooner after one another are a double click, or the click that closed the panel.
constexpr auto betweenClicks = 500ms;
/// The fastest of them counts; the first few are slower than any.
constexpr int starts = 16;
constexpr int openings = 4;

void forgetFiles() {
  ::sync();
  std::ofstream("/proc/sys/vm/drop_caches") << 1;
}

/// A screen with a tray, and one of the programs on it.
class Desk {
 public:
  /// A cold start is one after which every file is read from the disk.
  explicit Desk(const char* program, bool isCold = false) : program_(program), desk_(server_.display()) {
    desk_.appear();
    if (isCold) forgetFiles();
    start();
  }

  [[nodiscard]] const RunningProgram& program() const { return *running_; }
  [[nodiscard]] double secondsToIcon() const { return secondsToIcon_; }

  /// From the click to the first pixel of the panel.
  double openPanel() {
    const std::uint32_t before = pixel();
    return secondsUntil([this] { desk_.click(); }, [&] { return pixel() != before; });
  }
  bool closePanel() {
    std::this_thread::sleep_for(betweenClicks);
    const std::uint32_t before = pixel();
    desk_.click();
    const bool isClosed = fakes::until([&] { return pixel() != before; });
    std::this_thread::sleep_for(betweenClicks);
    return isClosed;
  }
  /// Of quibbly: each has its key in the panel.
  bool openEveryFace() {
    constexpr xcb_keysym_t comma = 0x2c;
    constexpr xcb_keysym_t d = 0x64;
    return openByKey(d, "quibbly Dashboard") && openByKey(comma, "Settings");
  }

 private:
  using Clock = std::chrono::steady_clock;

  static double secondsUntil(const std::function<void()>& act, const std::function<bool()>& holds) {
    const auto begin = Clock::now();
    act();
    // Between two looks the display serves the program.
    while (!holds() && Clock::now() - begin < 30s) std::this_thread::sleep_for(200us);
    return std::chrono::duration<double>(Clock::now() - begin).count();
  }

  void start() {
    secondsToIcon_ = secondsUntil(
        [this] {
          const auto container = home_.path() / "group.org.quibbly";
          // quibbly takes every word that is no command for a URL.
          const bool isBare = program_ == std::string_view(BARE_TRAY_PROGRAM);
          running_.emplace(startOn(server_.display(), home_, program_, isBare ? container.c_str() : nullptr));
        },
        [this] { return desk_.serve(); });
  }

  bool openByKey(xcb_keysym_t key, std::string_view title) {
    return desk_.openByKey("quibbly", key, title) && fakes::until([&] { return !desk_.shows("quibbly"); });
  }

  [[nodiscard]] std::uint32_t pixel() const { return desk_.pixel(desk_.width() - 170, 90); }

  const char* program_;
  fakes::XServer server_;
  X11Desk desk_;
  MemoryHome home_;
  double secondsToIcon_ = 0;
  std::optional<RunningProgram> running_;
};

void timeToIcon(benchmark::State& state, const char* program) {
  for (auto _ : state) state.SetIterationTime(Desk(program).secondsToIcon());
}

void bareIcon(benchmark::State& state) { timeToIcon(state, BARE_TRAY_PROGRAM); }
BENCHMARK(bareIcon)->UseManualTime()->Iterations(1)->Repetitions(starts);
void icon(benchmark::State& state) { timeToIcon(state, QUIBBLY_PROGRAM); }
BENCHMARK(icon)->UseManualTime()->Iterations(1)->Repetitions(starts);
const Compare iconBound("icon", "bareIcon", 1.2);

void timeToColdIcon(benchmark::State& state, const char* program) {
  for (auto _ : state) state.SetIterationTime(Desk(program, true).secondsToIcon());
}
/// Only root may have the kernel forget what it read.
const bool coldStarts = ::geteuid() == 0 && [] {
  constexpr int coldStartCount = 5;
  for (const auto& [name, program] : {std::pair{"bareIconCold", BARE_TRAY_PROGRAM}, {"iconCold", QUIBBLY_PROGRAM}}) {
    benchmark::RegisterBenchmark(name, timeToColdIcon, program)
        ->UseManualTime()
        ->Iterations(1)
        ->Repetitions(coldStartCount);
  }
  return true;
}();
const Beside coldIcons("iconCold", "bareIconCold");

void timeToPanel(benchmark::State& state, const char* program, const char* again) {
  for (auto _ : state) {
    Desk desk(program);
    std::this_thread::sleep_for(1s);
    state.SetIterationTime(desk.openPanel());
    double fastest = std::numeric_limits<double>::max();
    for (int i = 0; i < openings; ++i) {
      if (!desk.closePanel()) return state.SkipWithError("the panel did not close");
      fastest = std::min(fastest, desk.openPanel());
    }
    state.counters[again] = 1e9 * fastest;
  }
}

void barePanel(benchmark::State& state) { timeToPanel(state, BARE_TRAY_PROGRAM, "barePanelAgain"); }
BENCHMARK(barePanel)->UseManualTime()->Iterations(1)->Repetitions(starts);
void panel(benchmark::State& state) { timeToPanel(state, QUIBBLY_PROGRAM, "panelAgain"); }
BENCHMARK(panel)->UseManualTime()->Iterations(1)->Repetitions(starts);
const Compare panelBound("panel", "barePanel", 1.5);
const Compare panelAgainBound("panelAgain", "barePanelAgain", 1.5);

/// One at a time: two programs of Qt at once would share its memory.
void idleInTray(benchmark::State& state, const char* program, const char* memory, const char* wakeUpsPerSecond) {
  for (auto _ : state) {
    const Desk desk(program);
    std::this_thread::sleep_for(untilSettled);
    const Use before = desk.program().use();
    std::this_thread::sleep_for(period);
    const Use used = difference(before, desk.program().use());
    if (!used.runs) return state.SkipWithError("the program ended");
    state.SetIterationTime(used.processorSeconds);
    state.counters[memory] = desk.program().proportionalSet();
    state.counters[wakeUpsPerSecond] = used.waits / std::chrono::duration<double>(period).count();
  }
}

void bareTray(benchmark::State& state) { idleInTray(state, BARE_TRAY_PROGRAM, "bareTrayMemory", "bareTrayWakeUps"); }
BENCHMARK(bareTray)->UseManualTime()->Iterations(1);
void tray(benchmark::State& state) { idleInTray(state, QUIBBLY_PROGRAM, "trayMemory", "trayWakeUps"); }
BENCHMARK(tray)->UseManualTime()->Iterations(1);
const Compare trayBound("tray", "bareTray", 0.5);
const Limit trayWakeUpsLimit("trayWakeUps", 0.2);
const Compare memoryBound("trayMemory", "bareTrayMemory", 1.25);

void everyFace(benchmark::State& state) {
  for (auto _ : state) {
    Desk desk(QUIBBLY_PROGRAM);
    std::this_thread::sleep_for(1s);
    if (!desk.openEveryFace()) return state.SkipWithError("a face did not open");
    std::this_thread::sleep_for(1s);
    state.SetIterationTime(1);
    state.counters["facesMemory"] = desk.program().proportionalSet();
  }
}
BENCHMARK(everyFace)->UseManualTime()->Iterations(1);
const Compare facesBound("facesMemory", "bareTrayMemory", 1.6);

}  // namespace
}  // namespace quibbly::bench
