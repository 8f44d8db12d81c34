#include <array>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <unistd.h>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "comparison.h"
#include "fakes/published_home.h"
#include "machine/machine.h"
#include "shared/app_group_store.h"
#include "shared/mailbox.h"
#include "shared/roast_request.h"

namespace quibbly::bench {
namespace {

using namespace std::chrono_literals;

constexpr int repetitions = 5;

LastRoast someRoast() {
  // Longer than the preview that is cut from it.
  return {
      .text = "24 apps are open. That is not multitasking, that is a cry for help with window decorations around it.",
      .category = "apps",
      .ruleId = "apps_many",
      .templateId = "apps_1",
      .mood = {.score = 66.5, .label = MacMood::Label::judgingYou},
      .createdAt = Date(std::chrono::seconds(1'800'000'000))};
}

WidgetSnapshot someSnapshot() {
  return {.capturedAt = Date(std::chrono::seconds(1'800'000'000)),
          .cpuUsageEstimate = 0.25,
          .memoryUtilizationEstimate = 0.91,
          .diskFreeBytes = 240'500'000'000,
          .batteryLevel = 87,
          .uptimeSeconds = 200'000.25,
          .runningAppCount = 24,
          .thermalState = RoastThermalState::fair,
          .mood = {.score = 66.5, .label = MacMood::Label::judgingYou}};
}

/// The plainest program that writes the same: one transaction of fifteen keys, and four files, each replaced in one
/// step.
class BareWriter {
 public:
  explicit BareWriter(std::filesystem::path directory) : directory_(std::move(directory)) {
    std::filesystem::create_directories(directory_);
    sqlite3_open((directory_ / "bare.db").c_str(), &database_);
    run("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL; PRAGMA wal_autocheckpoint = 0;"
        "CREATE TABLE IF NOT EXISTS pairs (key TEXT NOT NULL PRIMARY KEY, value) WITHOUT ROWID;");
    sqlite3_prepare_v2(database_, "INSERT OR REPLACE INTO pairs VALUES (?1, ?2)", -1, &put_, nullptr);
  }
  BareWriter(const BareWriter&) = delete;
  BareWriter& operator=(const BareWriter&) = delete;
  ~BareWriter() {
    sqlite3_finalize(put_);
    sqlite3_close(database_);
  }

  void write() {
    run("BEGIN IMMEDIATE");
    for (std::size_t key = 0; key < keys_.size(); ++key) {
      const std::string& value = key < 13 ? short_ : long_;
      sqlite3_bind_text(put_, 1, keys_[key].data(), -1, SQLITE_STATIC);
      sqlite3_bind_text(put_, 2, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
      sqlite3_step(put_);
      sqlite3_reset(put_);
    }
    run("COMMIT");
    for (const char* name : {"one", "two", "three", "four"}) replace(directory_ / name);
  }
  /// Keeps the log from growing; not part of what is measured.
  void shortenLog() { run("PRAGMA wal_checkpoint"); }

 private:
  void run(const char* sql) { sqlite3_exec(database_, sql, nullptr, nullptr, nullptr); }
  void replace(const std::filesystem::path& file) const {
    const std::string temporary = file.string() + ".tmp";
    const int opened = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    benchmark::DoNotOptimize(::write(opened, long_.data(), long_.size()));
    ::close(opened);
    ::rename(temporary.c_str(), file.c_str());
  }

  std::filesystem::path directory_;
  std::string short_ = std::string(12, 's');
  std::string long_ = std::string(200, 'l');
  std::array<std::string, 15> keys_{
      "roastText",    "roastCategory", "roastMood",         "roastAt", "roastTemplate", "ram",
      "apps",         "uptime",        "thermal",           "battery", "snapAt",        "generationToken",
      "generationAt", "lastRoastData", "widgetSnapshotData"};
  sqlite3* database_ = nullptr;
  sqlite3_stmt* put_ = nullptr;
};

void bareWrites(benchmark::State& state) {
  BareWriter writer(std::filesystem::path(std::getenv("XDG_DATA_HOME")) / "bare");
  int written = 0;
  for (auto _ : state) {
    writer.write();
    if (++written % 300 != 0) continue;
    state.PauseTiming();
    writer.shortenLog();
    state.ResumeTiming();
  }
}
BENCHMARK(bareWrites)->Repetitions(repetitions);

void publish(benchmark::State& state) {
  Machine machine;
  const SharedStorage storage(machine.container(), machine.files(), machine.random());
  AppGroupStore store(storage, machine.groupPreferences(), machine.clock(), machine.random(), machine.userText());
  const LastRoast roast = someRoast();
  const WidgetSnapshot snapshot = someSnapshot();
  for (auto _ : state) store.publish(roast, snapshot);
  if (store.lastRoast() != roast) state.SkipWithError("nothing was published");
}
BENCHMARK(publish)->Repetitions(repetitions);
const Compare publishBound("publish", "bareWrites", 1.5);
const Limit publishLimit("publish", 1ms);

/// What a thousand publications of up to 24 KB each leave on the disk: the log begins anew now and then.
void thousandPublications(benchmark::State& state) {
  for (auto _ : state) {
    fakes::PublishedHome home(std::filesystem::path(std::getenv("XDG_DATA_HOME")) / "thousand");
    for (int number = 0; number < 1000; ++number) home.publish(number);
    const std::filesystem::path log = home.storeFile.string() + "-wal";
    state.counters["storeSize"] = static_cast<double>(file_size(home.storeFile) + file_size(log));
  }
}
BENCHMARK(thousandPublications)->Iterations(1);
const Limit storeSizeLimit("storeSize", 16.0 * 1024 * 1024, Unit::bytes);

/// There for both, whoever runs first: else all of it would be missing, not the file alone.
std::filesystem::path madeContainer(const Machine& machine) {
  std::filesystem::create_directories(*machine.container().url());
  return *machine.container().url();
}

void bareFailedOpen(benchmark::State& state) {
  const Machine machine;
  const std::string missing = (madeContainer(machine) / "missing.json").string();
  for (auto _ : state) benchmark::DoNotOptimize(::open(missing.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
}
BENCHMARK(bareFailedOpen)->Repetitions(repetitions);

void takeNothing(benchmark::State& state) {
  Machine machine;
  madeContainer(machine);
  const SharedStorage storage(machine.container(), machine.files(), machine.random());
  const Mailbox<RoastRequest> requests(storage, machine.files(), "roastRequest.json");
  for (auto _ : state) benchmark::DoNotOptimize(requests.take());
}
BENCHMARK(takeNothing)->Repetitions(repetitions);
const Compare takeNothingBound("takeNothing", "bareFailedOpen", 2.0);

}  // namespace
}  // namespace quibbly::bench
