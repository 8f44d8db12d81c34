// Runs every benchmark and prints one table: each figure beside its baseline of the same run, or beside a limit.

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

#include <benchmark/benchmark.h>

#include "comparison.h"
#include "fakes/private_bus.h"

namespace quibbly::bench {

std::vector<Bound>& bounds() {
  static std::vector<Bound> all;
  return all;
}

namespace {

/// Keeps the fastest of the repetitions: what disturbs a run only ever makes it slower. A label says why a benchmark has
/// no figures here, which is no fault.
class FastestRun : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      if (run.error_occurred) {
        std::printf("%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
        failed_ = true;
        continue;
      }
      if (!run.report_label.empty()) {
        if (run.repetition_index <= 0) std::printf("%s: %s\n", run.benchmark_name().c_str(), run.report_label.c_str());
        continue;
      }
      keep(run.run_name.function_name, run.GetAdjustedRealTime());
      for (const auto& [name, counter] : run.counters) keep(name, counter.value);
    }
  }
  /// Nanoseconds, or a counter's value; absent for a benchmark that did not run, or could not here.
  [[nodiscard]] std::optional<double> figure(const std::string& name) const {
    const auto found = figures_.find(name);
    return found == figures_.end() ? std::nullopt : std::optional(found->second);
  }
  [[nodiscard]] bool failed() const { return failed_; }

 private:
  void keep(const std::string& name, double figure) {
    const auto [place, isNew] = figures_.try_emplace(name, figure);
    if (!isNew) place->second = std::min(place->second, figure);
  }

  std::map<std::string, double> figures_;
  bool failed_ = false;
};

std::string text(const char* format, double value) {
  std::array<char, 32> buffer{};
  std::snprintf(buffer.data(), buffer.size(), format, value);
  return buffer.data();
}

std::string withUnit(const std::optional<double>& measured, Unit unit) {
  if (!measured) return "not run";
  const double figure = *measured;
  switch (unit) {
    case Unit::time:
      return figure < 1e6 ? text("%.3f us ", 1e-3 * figure) : text("%.3f ms ", 1e-6 * figure);
    case Unit::bytes:
      return text("%.1f KiB", figure / 1024);
    case Unit::perSecond:
      return text("%.3f /s ", figure);
    case Unit::count:
      break;
  }
  return text("%.0f    ", figure);
}

/// Prints one line; false when the bound is passed or could not be checked.
bool check(const FastestRun& fastest, const Bound& bound, bool isFiltered) {
  const bool isAlone = bound.baseline.empty();
  const auto ours = fastest.figure(bound.measured);
  const auto theirs = isAlone ? std::optional(0.0) : fastest.figure(bound.baseline);
  if ((bound.isOnlyShown && (!ours || !theirs)) || (isFiltered && !ours)) return true;
  std::printf("%-26s %13s   %-22s %13s", bound.measured.c_str(), withUnit(ours, bound.unit).c_str(),
              bound.baseline.c_str(), isAlone ? "" : withUnit(theirs, bound.unit).c_str());
  if (!ours || !theirs) {
    std::printf("\n");
    return isFiltered;
  }
  const double times = bound.atMostTimes * *theirs;
  const double atMost = std::max(times, bound.atMost);
  const bool isWithin = bound.isOnlyShown || *ours <= atMost;
  const std::string limit = times > bound.atMost ? text("x %.3f ", bound.atMostTimes) : withUnit(atMost, bound.unit);
  std::printf(" %9s %13s %7s%s\n", isAlone ? "" : text("x %.3f", *ours / *theirs).c_str(),
              bound.isOnlyShown ? "" : limit.c_str(),
              bound.isOnlyShown || atMost == 0 ? "" : text("%.0f %%", 100 * (1 - *ours / atMost)).c_str(),
              isWithin ? "" : "  OVER");
  return isWithin;
}

bool report(const FastestRun& fastest) {
  // The rows of benchmarks that nobody asked for are left out.
  const std::string filter = benchmark::GetBenchmarkFilter();
  const bool isFiltered = !filter.empty() && filter != "all";
  std::printf("%-26s %13s   %-22s %13s %9s %13s %7s\n", "measured", "", "baseline", "", "ratio", "at most", "spare");
  bool allWithin = !fastest.failed();
  for (const Bound& bound : bounds()) allWithin = check(fastest, bound, isFiltered) && allWithin;
  return allWithin;
}

}  // namespace
}  // namespace quibbly::bench

int main(int argc, char** argv) {
  ::unsetenv("DISPLAY");  // samples are measured without one
  // quibbly is one to a session, and the user may be running it; and the services that the user's bus starts take time.
  const quibbly::fakes::PrivateBus bus;
  ::setenv("DBUS_SESSION_BUS_ADDRESS", bus.address().c_str(), 1);
  const auto container = std::filesystem::temp_directory_path() / ("quibbly-bench." + std::to_string(::getpid()));
  // A benchmark says nothing that the user would not hear again, and touches no preferences.
  for (const char* home : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"}) {
    ::setenv(home, container.c_str(), 1);
  }
  // What disturbs the machine for a second shall disturb a figure and its baseline alike.
  std::vector<char*> words(argv, argv + argc);
  std::string interleave = "--benchmark_enable_random_interleaving=true";
  words.insert(words.begin() + 1, interleave.data());
  argc = static_cast<int>(words.size());
  benchmark::Initialize(&argc, words.data());
  quibbly::bench::FastestRun fastest;
  const bool hasRun = benchmark::RunSpecifiedBenchmarks(&fastest) > 0;
  std::error_code ignored;
  std::filesystem::remove_all(container, ignored);
  return hasRun && quibbly::bench::report(fastest) ? 0 : 1;
}
