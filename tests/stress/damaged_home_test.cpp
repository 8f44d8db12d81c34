// The intent on homes where something is broken: it ends in time and in silence, and what was whole stays whole.

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <future>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "fakes/published_home.h"
#include "fakes/silent_socket.h"
#include "shared/pending_notify.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

struct Damage {
  const char* what;
  /// Shell words before the program, in the home directory.
  const char* before;
  /// Whether a pending notification can still be left.
  bool notifies;
  std::function<void(const fakes::PublishedHome&)> prepare = nullptr;
  bool keepsStore = true;
};

struct Outcome {
  std::string what;
  std::string output;
  std::chrono::steady_clock::duration took;
  std::vector<std::string> faults;
};

Outcome runOn(const Damage& damage) {
  const fakes::FileTree tree;
  fakes::PublishedHome(tree.root()).publish(7);
  if (damage.prepare) damage.prepare(fakes::PublishedHome(tree.root()));
  const std::string command = "cd " + tree.root().string() +
                              " && export XDG_DATA_HOME=$PWD/data XDG_CONFIG_HOME=$PWD/config "
                              "DBUS_SESSION_BUS_ADDRESS=disabled: && { " +
                              damage.before +
                              " " QUIBBLY_ROAST_ME " --verbose 2>&1; echo status $?; } | cat >output.txt";
  const auto start = std::chrono::steady_clock::now();
  if (std::system(command.c_str()) != 0) return {.what = damage.what, .faults = {"no shell"}};
  Outcome outcome{.what = damage.what, .took = std::chrono::steady_clock::now() - start};
  outcome.output = fakes::contentOf(tree.root() / "output.txt");

  fakes::PublishedHome after(tree.root());
  outcome.faults = after.missing();
  if (!damage.keepsStore) std::erase(outcome.faults, "the store");
  if (after.storage.read<PendingNotify>("pendingNotify.json").has_value() != damage.notifies) {
    outcome.faults.emplace_back("pendingNotify.json");
  }
  for (const auto& entry : std::filesystem::recursive_directory_iterator(tree.root())) {
    if (entry.path().extension() == ".tmp") outcome.faults.push_back(entry.path());
  }
  return outcome;
}

TEST(DamagedHome, is_roasted_in_time_and_loses_nothing) {
  std::unique_ptr<fakes::SilentSocket> bus;
  sqlite3* locker = nullptr;
  const Damage damages[] = {
      {"no bus", "", true},
      {"a bus that hangs", "DBUS_SESSION_BUS_ADDRESS=unix:path=$PWD/bus", true,
       [&](const auto& home) { bus = std::make_unique<fakes::SilentSocket>((home.directory / "bus").string()); }},
      {"no place for the container", "XDG_DATA_HOME=/dev/null/nowhere", false},
      {"no place for the store", "XDG_CONFIG_HOME=/dev/null/nowhere", true},
      {"no place for anything", "XDG_DATA_HOME=/dev/null/nowhere XDG_CONFIG_HOME=/dev/null/nowhere", false},
#ifndef __SANITIZE_THREAD__  // whose own start needs room
      {"no room", "ulimit -f 0;", false},
#endif
      {"a store that is no database", "", true,
       [](const auto& home) { std::ofstream(home.storeFile, std::ios::trunc) << std::string(5000, 'x'); }, false},
      {"a locked store", "", true,
       [&](const auto& home) {
         sqlite3_open(home.storeFile.c_str(), &locker);
         sqlite3_exec(locker, "BEGIN EXCLUSIVE; DELETE FROM preferences", nullptr, nullptr, nullptr);
       }},
      {"a corrupt history", "", true,
       [](const auto& home) { std::ofstream(home.containerURL / "recentRoasts.json") << "{"; }},
  };
  std::vector<std::future<Outcome>> runs;
  for (const Damage& damage : damages) {
    runs.push_back(std::async(std::launch::async, [&damage] { return runOn(damage); }));
  }
  for (auto& run : runs) {
    const Outcome outcome = run.get();
    EXPECT_THAT(outcome.output, ::testing::MatchesRegex("[^\n]+\nstatus 0\n")) << outcome.what;
    EXPECT_LT(outcome.took, 40s) << outcome.what;
    EXPECT_THAT(outcome.faults, ::testing::IsEmpty()) << outcome.what;
  }
  sqlite3_close(locker);
}

}  // namespace
}  // namespace quibbly
