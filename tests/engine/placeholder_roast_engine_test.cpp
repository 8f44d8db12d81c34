#include "engine/placeholder_roast_engine.h"

#include <limits>

#include <gtest/gtest.h>

#include "fakes/fixed_clock.h"
#include "fakes/samples.h"
#include "fakes/scripted_random.h"

namespace quibbly {
namespace {

using fakes::quietSample;

constexpr MacMood mood{.score = 73.9, .label = MacMood::Label::judgingYou};

class RoastEngine : public ::testing::Test {
 protected:
  LastRoast roastFrom(std::span<const Family> families, const RecentRoastHistory& history = RecentRoastHistory::empty,
                      const SystemSnapshot& sample = quietSample()) {
    return PlaceholderRoastEngine(clock_, random_, families).roast(sample, mood, history);
  }

  fakes::FixedClock clock_;
  fakes::ScriptedRandom random_;
};

// --- What a sample is mocked for ---

struct SampleCase {
  fakes::Change change;
  const char* templateId;
  const char* text = nullptr;
};

using fakes::all;
using fakes::Change;
using fakes::set;
using S = SystemSnapshot;
using Thermal = RoastThermalState;

constexpr auto infinity = std::numeric_limits<double>::infinity();
constexpr auto notANumber = std::numeric_limits<double>::quiet_NaN();
const Change tooHot = set(&S::thermalState, Thermal::serious);
const Change battery10 = set(&S::batteryLevel, 10);
const Change fullMemory = set(&S::memoryUtilizationEstimate, 0.9);
const Change apps25 = set(&S::runningAppCount, 25);
const Change browsers3 = set(&S::browserCount, 3);
const Change days10 = set(&S::uptimeSeconds, 864'000);

TEST_F(RoastEngine, mocks_the_worst_of_a_sample) {
  const SampleCase cases[] = {
      {all({}), "life_1", "Your morning routine is coffee, guilt, and 8 apps. In that order."},
      {set(&S::thermalState, Thermal::fair), "life_1"},
      {tooHot, "thermal_1", "Thermal state: serious. This is a laptop, not an induction hob."},
      {all({set(&S::thermalState, Thermal::critical), battery10, fullMemory}), "thermal_1"},
      {all({battery10, fullMemory}), "battery_1", "10% battery. Your energy strategy is faith-based."},
      {set(&S::batteryLevel, 14), "battery_1"},
      {set(&S::batteryLevel, 15), "battery_m1"},
      {set(&S::batteryLevel, 29), "battery_m1"},
      {set(&S::batteryLevel, 30), "life_1"},
      {set(&S::batteryLevel, std::nullopt), "life_1"},
      {all({battery10, set(&S::isCharging, true)}), "life_1"},
      {all({battery10, set(&S::isCharging, std::nullopt)}), "battery_1"},
      {all({set(&S::memoryUtilizationEstimate, 0.851), browsers3}), "ram_1",
       "RAM estimate 85%. 3 browsers open. The internet remains unchanged."},
      {set(&S::memoryUtilizationEstimate, 0.85), "ram_m1"},
      {set(&S::memoryUtilizationEstimate, 0.7), "life_1"},
      {set(&S::memoryUtilizationEstimate, infinity), "ram_1"},
      {set(&S::diskFreeBytes, 14'999'999'999), "disk_1", "15.0 GB free. One Xcode project away from disaster."},
      {set(&S::diskFreeBytes, 15'000'000'000), "life_1"},
      {set(&S::uptimeSeconds, 259'199), "life_1"},
      {set(&S::uptimeSeconds, 259'200), "uptime_m1"},
      {set(&S::uptimeSeconds, 604'799), "uptime_m1", "Uptime 6 days. Warming up to a real streak."},
      {set(&S::uptimeSeconds, 604'800), "uptime_1", "7 days without a restart. Stability or update dread?"},
      {set(&S::uptimeSeconds, infinity), "uptime_1",
       "9223372036854775807 days without a restart. Stability or update dread?"},
      {set(&S::uptimeSeconds, notANumber), "life_1"},
      {set(&S::runningAppCount, 11), "life_1"},
      {set(&S::runningAppCount, 12), "apps_m1"},
      {set(&S::runningAppCount, 19), "apps_m1"},
      {set(&S::runningAppCount, 20), "apps_1"},
      {set(&S::browserCount, 1), "life_1"},
      {set(&S::browserCount, 2), "br_1", "2 browsers open. Still one internet."},
      {all({apps25, browsers3, days10}), "uptime_1"},
      {all({apps25, browsers3}), "apps_1"},
  };
  for (const SampleCase& c : cases) {
    SystemSnapshot sample = quietSample();
    c.change(sample);
    const LastRoast result = PlaceholderRoastEngine(clock_, random_).roast(sample, mood, RecentRoastHistory::empty);
    EXPECT_EQ(result.templateId, c.templateId) << result.text;
    EXPECT_TRUE(!c.text || result.text == c.text) << result.text;
  }
}

// --- The values in the lines ---

TEST_F(RoastEngine, lines_carry_the_values_of_the_sample_and_the_mood) {
  SystemSnapshot sample = quietSample();
  sample.diskFreeBytes = 12'345'678'901;
  sample.thermalState = RoastThermalState::serious;
  sample.uptimeSeconds = 9.99 * 86'400;
  constexpr auto lines = std::to_array<std::string_view>(
      {"{thermal} {Thermal} {battery} {ram} {diskGB} {days} {apps} {browsers} {mood} {score} {unknown} }{"});
  const Family family{.category = "c", .ruleId = "r", .idPrefix = "p_", .priority = 1, .lines = lines};

  const LastRoast result = roastFrom({&family, 1}, RecentRoastHistory::empty, sample);

  EXPECT_EQ(result, (LastRoast{.text = "serious Serious 80 50 12.3 9 8 0 Judging You 73 {unknown} }{",
                               .category = "c",
                               .ruleId = "r",
                               .templateId = "p_1",
                               .mood = mood,
                               .createdAt = clock_.time}));
}

// --- What was said before ---

constexpr auto twoLines = std::to_array<std::string_view>({"{apps} one", "{apps} two"});
constexpr auto oneLine = std::to_array<std::string_view>({"{apps} three"});
constexpr Family low{.category = "low", .ruleId = "low", .idPrefix = "low_", .priority = 1, .lines = twoLines};
constexpr Family high{.category = "high", .ruleId = "high", .idPrefix = "high_", .priority = 2, .lines = oneLine};
constexpr auto lowThenHigh = std::to_array({low, high});

struct HistoryCase {
  const char* what;
  RecentRoastHistory history;
  const char* templateId;
  int draws = 0;
};

TEST_F(RoastEngine, with_all_said_lately_it_prefers_new_words_then_anything_but_the_last_one) {
  const std::vector<std::string> allIds{"low_1", "low_2", "high_1"};
  const std::vector<std::string> allTexts{"8 one", "8 two", "8 three"};
  const HistoryCase cases[] = {
      {"nothing said: priority decides", {}, "high_1"},
      {"the best one said: build order decides among equals", {{}, {"high_1"}, {}}, "low_1"},
      {"all templates said, with other figures: the best of the new texts", {{"7 one"}, allIds, {}}, "high_1"},
      {"all templates said, the best one in the same words", {{"8 three"}, allIds, {}}, "low_1"},
      {"all said: the first built that is not the last one said", {allTexts, allIds, {}}, "low_2", 1},
      {"all said, the last one built later: the first built", {allTexts, {"high_1", "low_1"}, {}}, "low_1", 1},
      {"all texts said, no template known: the first built", {allTexts, {}, {}}, "low_1", 1},
  };
  for (const HistoryCase& c : cases) {
    random_.draws = 0;
    EXPECT_EQ(roastFrom(lowThenHigh, c.history).templateId, c.templateId) << c.what;
    EXPECT_EQ(random_.draws, c.draws) << c.what;
  }
}

TEST_F(RoastEngine, chance_decides_only_when_there_is_nothing_but_the_last_template) {
  // Two lines of one template id cannot come from one family: these two share a prefix on purpose.
  const auto families = std::to_array({Family{.category = "a", .idPrefix = "same_", .lines = oneLine},
                                       Family{.category = "b", .idPrefix = "same_", .lines = oneLine}});
  const RecentRoastHistory history{{"8 three"}, {"same_1"}, {}};
  random_.next = 0;
  EXPECT_EQ(roastFrom(families, history).category, "a");
  random_.next = SecureRandom::max();
  EXPECT_EQ(roastFrom(families, history).category, "b");
}

TEST_F(RoastEngine, a_sample_that_no_family_fits_draws_on_every_family_that_exists) {
  const auto never = [](const SystemSnapshot&) { return false; };
  Family hidden = high;
  hidden.exists = never;
  Family unfit = low;
  unfit.matches = never;
  const auto families = std::to_array({unfit, hidden});
  EXPECT_EQ(roastFrom(families).templateId, "low_1");
}

TEST_F(RoastEngine, without_any_family_there_still_is_a_line) {
  const LastRoast result = roastFrom({});
  EXPECT_EQ(result, (LastRoast{.text = "Mac Mood: Judging You. Everything is fine. Allegedly.",
                               .category = "general",
                               .ruleId = "general_ok",
                               .templateId = "general_ok_fallback",
                               .mood = mood,
                               .createdAt = clock_.time}));
}

}  // namespace
}  // namespace quibbly
