#include <array>
#include <string>

#include <benchmark/benchmark.h>

#include "comparison.h"
#include "engine/placeholder_roast_engine.h"
#include "machine/machine.h"
#include "monitor/mood_calculator.h"

namespace quibbly::bench {
namespace {

constexpr int repetitions = 5;

SystemSnapshot notableSample() {
  SystemSnapshot sample;
  sample.memoryUtilizationEstimate = 0.91;
  sample.diskFreeBytes = 240'500'000'000;
  sample.diskTotalBytes = 1'000'000'000'000;
  sample.batteryLevel = 87;
  sample.uptimeSeconds = 9.5 * 86'400;
  sample.runningAppCount = 24;
  sample.browserCount = 3;
  return sample;
}

/// Every line written out once by the plainest loop there is, its values prepared and every text dropped at once.
void linesWrittenOut(benchmark::State& state) {
  const std::array<std::pair<std::string, std::string>, 10> values{{{"thermal", "nominal"},
                                                                    {"Thermal", "Nominal"},
                                                                    {"battery", "87"},
                                                                    {"ram", "91"},
                                                                    {"diskGB", "240.5"},
                                                                    {"days", "9"},
                                                                    {"apps", "24"},
                                                                    {"browsers", "3"},
                                                                    {"mood", "Judging You"},
                                                                    {"score", "66"}}};
  for (auto _ : state) {
    for (const Family& family : allFamilies()) {
      for (const std::string_view line : family.lines) {
        std::string text;
        std::size_t at = 0;
        for (std::size_t open = line.find('{'); open != line.npos; open = line.find('{', at)) {
          const std::size_t close = line.find('}', open);
          const std::string_view name = line.substr(open + 1, close - open - 1);
          text += line.substr(at, open - at);
          for (const auto& [key, value] : values) {
            if (key == name) text += value;
          }
          at = close + 1;
        }
        text += line.substr(at);
        benchmark::DoNotOptimize(text);
      }
    }
  }
}
BENCHMARK(linesWrittenOut)->Repetitions(repetitions);

void roast(benchmark::State& state) {
  Machine machine;
  const PlaceholderRoastEngine engine(machine.clock(), machine.random());
  const SystemSnapshot sample = notableSample();
  const MacMood mood = MoodCalculator::score(sample);
  RecentRoastHistory history;
  for (int i = 0; i < 12; ++i) {
    const LastRoast said = engine.roast(sample, mood, history);
    history = history.recording(said.text, said.templateId);
  }
  for (auto _ : state) benchmark::DoNotOptimize(engine.roast(sample, mood, history));
}
BENCHMARK(roast)->Repetitions(repetitions);
const Compare roastBound("roast", "linesWrittenOut", 30.0 / 17.0);

void score(benchmark::State& state) {
  SystemSnapshot sample = notableSample();
  for (auto _ : state) {
    benchmark::DoNotOptimize(sample);
    benchmark::DoNotOptimize(MoodCalculator::score(sample));
  }
}
BENCHMARK(score)->Repetitions(repetitions);
const Compare scoreBound("score", "linesWrittenOut", 0.1 / 17.0);

}  // namespace
}  // namespace quibbly::bench
