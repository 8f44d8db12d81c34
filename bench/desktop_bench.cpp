#include <algorithm>
#include <chrono>
#include <limits>
#include <thread>

#include <benchmark/benchmark.h>

#include "comparison.h"
#include "desk.h"

namespace quibbly::bench {
namespace {

using namespace std::chrono_literals;

/// The fastest of them counts; the first few are slower than any.
constexpr int starts = 16;
constexpr int coldStarts = 5;
constexpr int openings = 4;

constexpr const char* noIcon = "no icon was docked";
constexpr const char* noPanel = "the panel did not open";

void timeToIcon(benchmark::State& state, const char* program) {
  for (auto _ : state) {
    const auto seconds = Desk().dock(program);
    if (!seconds) return state.SkipWithError(noIcon);
    state.SetIterationTime(*seconds);
  }
}

void bareIcon(benchmark::State& state) { timeToIcon(state, BARE_TRAY_PROGRAM); }
BENCHMARK(bareIcon)->UseManualTime()->Iterations(1)->Repetitions(starts);
void icon(benchmark::State& state) { timeToIcon(state, QUIBBLY_PROGRAM); }
BENCHMARK(icon)->UseManualTime()->Iterations(1)->Repetitions(starts);
const Compare iconBound("icon", "bareIcon", 1.2);

void timeToColdIcon(benchmark::State& state, const char* program) {
  for (auto _ : state) {
    Desk desk;
    if (!forgetFiles()) {
      state.SetLabel(nothingForgotten);
      continue;
    }
    const auto seconds = desk.dock(program);
    if (!seconds) return state.SkipWithError(noIcon);
    state.SetIterationTime(*seconds);
  }
}

void bareIconCold(benchmark::State& state) { timeToColdIcon(state, BARE_TRAY_PROGRAM); }
BENCHMARK(bareIconCold)->UseManualTime()->Iterations(1)->Repetitions(coldStarts);
void iconCold(benchmark::State& state) { timeToColdIcon(state, QUIBBLY_PROGRAM); }
BENCHMARK(iconCold)->UseManualTime()->Iterations(1)->Repetitions(coldStarts);
const Beside coldIcons("iconCold", "bareIconCold");

void timeToPanel(benchmark::State& state, const char* program, const char* again) {
  for (auto _ : state) {
    Desk desk;
    if (!desk.dock(program)) return state.SkipWithError(noIcon);
    std::this_thread::sleep_for(1s);
    const auto first = desk.openPanel();
    if (!first) return state.SkipWithError(noPanel);
    state.SetIterationTime(*first);
    double fastest = std::numeric_limits<double>::max();
    for (int i = 0; i < openings; ++i) {
      if (!desk.closePanel()) return state.SkipWithError("the panel did not close");
      const auto next = desk.openPanel();
      if (!next) return state.SkipWithError(noPanel);
      fastest = std::min(fastest, *next);
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
void idleInTray(benchmark::State& state, const char* program, const char* name) {
  for (auto _ : state) {
    Desk desk;
    if (!desk.dock(program)) return state.SkipWithError(noIcon);
    if (!desk.idle(state, name)) return state.SkipWithError("the program ended");
  }
}

void bareTray(benchmark::State& state) { idleInTray(state, BARE_TRAY_PROGRAM, "bareTray"); }
BENCHMARK(bareTray)->UseManualTime()->Iterations(1);
void tray(benchmark::State& state) { idleInTray(state, QUIBBLY_PROGRAM, "tray"); }
BENCHMARK(tray)->UseManualTime()->Iterations(1);
const Compare trayBound("tray", "bareTray", 0.5, 20ms);
const Limit trayWakeUpsLimit("trayWakeUps", 0.2, Unit::perSecond);
const Beside trayWakeUps("trayWakeUps", "bareTrayWakeUps", Unit::perSecond);
const Beside trayThreadWaits("trayThreadWaits", "bareTrayThreadWaits", Unit::perSecond);
const Compare memoryBound("trayMemory", "bareTrayMemory", 1.25, Unit::bytes);

void everyFace(benchmark::State& state) {
  for (auto _ : state) {
    Desk desk;
    if (!desk.dock(QUIBBLY_PROGRAM)) return state.SkipWithError(noIcon);
    std::this_thread::sleep_for(1s);
    if (!desk.openEveryFace()) return state.SkipWithError("a face did not open");
    std::this_thread::sleep_for(1s);
    state.counters["facesMemory"] = desk.program().proportionalSet();
  }
}
BENCHMARK(everyFace)->Iterations(1);
const Compare facesBound("facesMemory", "bareTrayMemory", 1.6, Unit::bytes);

}  // namespace
}  // namespace quibbly::bench
