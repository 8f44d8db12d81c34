// Runs every benchmark and prints one table: each figure beside its baseline of the same run, or beside a limit.

#include <algorithm>
#include <cmath>
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

/// Keeps the fastest of the repetitions: what disturbs a run only ever makes it slower.
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
      keep(run.run_name.function_name, run.GetAdjustedRealTime());
      for (const auto& [name, counter] : run.counters) keep(name, counter.value);
    }
  }
  /// Nanoseconds, or a counter's value; absent for a benchmark that did not run.
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

/// Prints one line; false when the bound is passed or could not be checked.
bool check(const FastestRun& fastest, const Bound& bound) {
  using Kind = Bound::Kind;
  const bool isRatio = bound.kind == Kind::ratio;
  const auto ours = fastest.figure(bound.measured);
  const auto theirs = isRatio ? fastest.figure(bound.baseline) : std::optional(1.0);
  if (bound.isOptional && (!ours || !theirs)) return true;
  if (!ours || !theirs) {
    std::printf("%-18s %12s   %-18s\n", bound.measured.c_str(), "not run", bound.baseline.c_str());
    return false;
  }
  const double shown = bound.kind == Kind::count ? 1 : 1000;  // times are shown in microseconds
  const double figure = isRatio ? *ours / *theirs : *ours / shown;
  const double atMost = isRatio ? bound.atMost : bound.atMost / shown;
  std::printf("%-18s %12.2f   ", bound.measured.c_str(), *ours / shown);
  if (isRatio) {
    std::printf("%-18s %12.2f", bound.baseline.c_str(), *theirs / shown);
  } else {
    std::printf("%-18s %12s", bound.kind == Kind::count ? "(a count)" : "(a time, us)", "");
  }
  if (std::isinf(atMost)) {
    std::printf(" %12.3f %12s\n", figure, "-");
  } else {
    std::printf(" %12.3f %12.3f%s\n", figure, atMost, figure <= atMost ? "" : "  OVER");
  }
  return figure <= atMost;
}

bool report(const FastestRun& fastest) {
  std::printf("%-18s %12s   %-18s %12s %12s %12s\n", "measured", "us", "baseline", "us", "figure", "at most");
  bool allWithin = !fastest.failed();
  for (const Bound& bound : bounds()) allWithin = check(fastest, bound) && allWithin;
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
  benchmark::RunSpecifiedBenchmarks(&fastest);
  std::error_code ignored;
  std::filesystem::remove_all(container, ignored);
  return quibbly::bench::report(fastest) ? 0 : 1;
}
