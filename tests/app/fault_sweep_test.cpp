// Every call that a roast makes of a service fails in turn: alone, or with all that come after it.

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app_test.h"
#include "fakes/quiet_watch.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using fakes::ApplicationHome;
using fakes::Faults;
using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::Not;

/// As long as a roast takes at most, every question of which is given up on.
constexpr auto roasting = 5600ms + 4 * fakes::givenUpAfter;
constexpr auto untilWithdrawn = 3min;
const std::string oldLine = "What was said before.";

/// Renames wait for the disk on some file systems, and a sweep makes thousands.
std::filesystem::path placeInMemory() {
  const std::filesystem::path shared = "/dev/shm";
  return std::filesystem::is_directory(shared) ? shared : std::filesystem::temp_directory_path();
}

template <typename Record>
Record decoded(const std::string& content) {
  auto record = decodeRecord<Record>(content);
  EXPECT_TRUE(record) << content;
  return record.value_or(Record());
}

/// Reads a file of the container as what it is: the line in it, or the old one where it has none.
std::string lineIn(const std::string& file, const std::string& content) {
  if (file == "lastRoast.json") return decoded<LastRoast>(content).text;
  if (file == "currentRoast.txt") return content.substr(content.find('\n', content.find('\n') + 1) + 1);
  if (file == "widgetSnapshot.json") (void)decoded<WidgetSnapshot>(content);
  if (file == "widgetGeneration.json") (void)decoded<WidgetGeneration>(content);
  if (file == "recentRoasts.json") (void)decoded<RecentRoastHistory>(content);
  return oldLine;
}

std::map<std::string, std::size_t> typesIn(PreferenceStore& store) {
  std::map<std::string, std::size_t> types;
  const auto values = store.all().value();
  for (const auto& [key, value] : values) types.emplace(key, value.index());
  return types;
}

/// A home in which a line was published before, and whose user was not yet asked about notifications.
class RoastedHome : public TestedApplication {
 public:
  // The kernel takes its time to end a watch.
  RoastedHome() : TestedApplication(std::make_unique<fakes::QuietWatch>(), placeInMemory()) {
    home_.widgetCenter.placed = {"a kind"};
    home_.desktop.active = true;
    home_.center.now.authorizationStatus = AuthorizationStatus::notDetermined;
    home_.group.store.publish(LastRoast{.text = oldLine}, {.batteryLevel = 80});
    home_.recentRoasts.remember({.texts = {oldLine}});
    store(preference_keys::dailyRoastLimit, std::int64_t{200});
    store(preference_keys::roastDayCount, std::int64_t{7});
    store(preference_keys::roastDayStamp, std::string("2026-11-17"));
    store(preference_keys::pauseRoastsUntil, 0.0);
    store(preference_keys::hideFromDock, std::int64_t{1});
    store(preference_keys::randomRoastIntervalMinutes, std::int64_t{0});
    ownTypes_ = typesIn(home_.preferences);
    groupTypes_ = typesIn(home_.group.preferences);
  }

  void start() { home_.launchApp().start(); }
  /// The user is asked again meanwhile.
  void settle() {
    advance(roasting);
    home_.center.now.authorizationStatus = AuthorizationStatus::notDetermined;
  }

  /// What the application shows.
  [[nodiscard]] std::string line() { return model().lastRoast->value_or(LastRoast()).text; }

  /// Makes a roast, and lets everything that it began come to its end.
  void roast() {
    home_.center.delivered.clear();
    model().statusMessage = std::nullopt;
    model().roastMeNow(true, true);
    advance(roasting);
    announced_ = announced();
    model().stop();
    advance(untilWithdrawn);
    EXPECT_EQ(home_.queue.untilNext(), std::nullopt) << "something does not end";
  }

  void expectShown(bool isAnnounced) {
    ASSERT_TRUE(model().lastRoast->has_value());
    EXPECT_NE(line(), oldLine);
    EXPECT_THAT(status(), Not(AnyOf("", "no status")));
    EXPECT_TRUE(!isAnnounced || std::ranges::find(announced_, line()) != announced_.end());
    EXPECT_EQ(std::ranges::count(home_.desktop.calls, "hide"), std::ranges::count(home_.desktop.calls, "unhide"));
  }

  /// What is stored is whole: of before, or of this roast.
  void expectWhole() {
    for (const auto& entry : std::filesystem::directory_iterator(*home_.group.container.url())) {
      if (entry.path().extension() == ".tmp") continue;
      const auto content = home_.group.files.read(entry);
      ASSERT_TRUE(content) << entry;
      EXPECT_THAT(lineIn(entry.path().filename(), *content), AnyOf(oldLine, line())) << entry;
    }
    EXPECT_EQ(typesIn(home_.preferences), ownTypes_);
    EXPECT_EQ(typesIn(home_.group.preferences), groupTypes_);
    EXPECT_EQ(storedInteger(preference_keys::dailyRoastLimit), 200);
    EXPECT_EQ(storedInteger(preference_keys::hideFromDock), 1);
    const auto published = home_.group.store.lastRoast();
    const auto payload = home_.group.store.widgetPayload();
    ASSERT_TRUE(published && payload);
    EXPECT_EQ(published->text, payload->text);
    EXPECT_THAT(published->text, AnyOf(oldLine, line()));
  }

  [[nodiscard]] bool hasLitter() const {
    return std::ranges::any_of(std::filesystem::directory_iterator(*home_.group.container.url()),
                               [](const auto& entry) { return entry.path().extension() == ".tmp"; });
  }

  /// Of a machine that got hot meanwhile, so that the line is another one.
  void expectNextRoastWorks() {
    home_.machine.sample.thermalState = RoastThermalState::critical;
    const std::string before = line();
    model().start();
    settle();
    roast();
    EXPECT_NE(line(), before);
    EXPECT_EQ(home_.group.store.lastRoast().value_or(LastRoast()).text, line());
    for (const char* file : {"lastRoast.json", "currentRoast.txt"}) {
      EXPECT_EQ(lineIn(file, home_.group.storage.readText(file).value_or("")), line());
    }
    const RecentRoastHistory history = home_.recentRoasts.history();
    EXPECT_EQ(history.lastNotificationBody, line());
    EXPECT_THAT(history.texts, Contains(line()));
    EXPECT_THAT(announced_, Contains(line()));
    const std::string count = std::to_string(*model().roastsSentToday);
    EXPECT_EQ(status(), "Desktop toast + notification (" + count + "/200 today).");
    EXPECT_EQ(storedInteger(preference_keys::roastDayCount), *model().roastsSentToday);
  }

 private:
  std::map<std::string, std::size_t> ownTypes_;
  std::map<std::string, std::size_t> groupTypes_;
  std::vector<std::string> announced_;
};

struct Service {
  const char* name;
  Faults& (*faultsIn)(ApplicationHome&);
  bool isAskedByRoast = true;
};

constexpr auto services = std::to_array<Service>({
    {"files", [](ApplicationHome& home) -> Faults& { return home.failing.files; }},
    {"group_preferences", [](ApplicationHome& home) -> Faults& { return home.failing.groupPreferences; }},
    {"preferences", [](ApplicationHome& home) -> Faults& { return home.failing.preferences; }},
    {"notifications", [](ApplicationHome& home) -> Faults& { return home.failing.center; }},
    {"widgets", [](ApplicationHome& home) -> Faults& { return home.failing.widgetCenter; }},
    {"processes", [](ApplicationHome& home) -> Faults& { return home.failing.crossProcess; }, false},
    {"clock_without_battery", [](ApplicationHome& home) -> Faults& { return home.failing.clock; }},
    {"clock_of_next_year",
     [](ApplicationHome& home) -> Faults& {
       home.failing.clock.wrong = home.group.clock.now() + std::chrono::years(1);
       return home.failing.clock;
     }},
    {"everything", [](ApplicationHome& home) -> Faults& { return home.commonFaults; }},
});

using Fail = void (Faults::*)(int number);

/// Runs with the first call failing, then with the second, until a run, which tells, has come to its end before. The number
/// of calls that can fail.
int sweep(const std::function<bool(int number)>& run) {
  int number = 1;
  for (bool failed = true; failed && !::testing::Test::HasFailure(); ++number) {
    SCOPED_TRACE("call " + std::to_string(number));
    failed = run(number);
  }
  return number - 2;
}

enum class Begin { beforeTheRoast, beforeTheStart };

/// A roast in which calls fail, and one after it. Whether any failed.
bool survives(const Service& service, Fail fail, int number, Begin begin) {
  RoastedHome home;
  const auto& failing = home.home_.failing;
  Faults& faults = service.faultsIn(home.home_);
  const bool isStarted = begin == Begin::beforeTheRoast;
  if (isStarted) home.start();
  if (isStarted) home.settle();
  (faults.*fail)(number);
  if (!isStarted) home.start();
  home.roast();
  const bool failed = faults.calls() >= number;
  faults.failNone();

  const bool isAlone = fail == &Faults::failCall;
  const bool isCommon = &faults == &home.home_.commonFaults;
  home.expectShown(!isCommon && &faults != &failing.center);
  // With another day the count begins anew, and what could never be read nobody knows.
  const bool isCounted = !isCommon && &faults != &failing.clock && (isStarted || isAlone);
  EXPECT_TRUE(!isCounted || home.model().roastsSentToday == 8) << *home.model().roastsSentToday;
  home.expectWhole();
  EXPECT_TRUE(!home.hasLitter() || !isAlone);
  home.expectNextRoastWorks();
  EXPECT_TRUE(!isCounted || home.model().roastsSentToday == 9) << *home.model().roastsSentToday;
  return failed;
}

class FailingService : public ::testing::TestWithParam<Service> {};

TEST_P(FailingService, is_survived_whichever_call_fails_alone_or_with_all_that_come_after_it) {
  for (const Begin begin : {Begin::beforeTheRoast, Begin::beforeTheStart}) {
    for (const Fail fail : {&Faults::failCall, &Faults::failFrom}) {
      SCOPED_TRACE(std::string(begin == Begin::beforeTheRoast ? "in a roast" : "in a start") +
                   (fail == &Faults::failCall ? ", alone" : ", lasting"));
      const int calls = sweep([&](int number) { return survives(GetParam(), fail, number, begin); });
      EXPECT_TRUE(calls > 0 || (begin == Begin::beforeTheRoast && !GetParam().isAskedByRoast));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Services, FailingService, ::testing::ValuesIn(services),
                         [](const auto& row) { return row.param.name; });

TEST(RefusedRoast, stays_refused_whichever_preference_cannot_be_read) {
  const std::pair<const char*, PreferenceValue> refusals[] = {{preference_keys::pauseRoastsUntil, 1e12},
                                                              {preference_keys::roastDayCount, std::int64_t{200}}};
  for (const auto& [key, value] : refusals) {
    for (const Fail fail : {&Faults::failCall, &Faults::failFrom}) {
      const int calls = sweep([&](int number) {
        RoastedHome home;
        home.store(key, value);
        home.start();
        home.settle();
        Faults& faults = home.home_.failing.preferences;
        (faults.*fail)(number);
        home.roast();
        EXPECT_EQ(home.line(), oldLine) << key;
        return faults.calls() >= number;
      });
      EXPECT_GT(calls, 0);
    }
  }
}

}  // namespace
}  // namespace quibbly
