#include "shared/app_group_store.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/file_tree.h"
#include "fakes/fixed_clock.h"
#include "fakes/group.h"
#include "fakes/memory_preference_store.h"
#include "shared/epoch_seconds.h"
#include "shared/widget_generation.h"

namespace quibbly {
namespace {

using ::testing::MatchesRegex;
using namespace std::chrono_literals;

constexpr auto aUuid = "[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}";
const Date noon = std::chrono::sys_days{std::chrono::year{2026} / 11 / 17} + 12h;

LastRoast someRoast() {
  return {.text = "Line one.\nLine two.",
          .category = "ram",
          .ruleId = "ram_high",
          .templateId = "ram_1",
          .mood = {.score = 66.5, .label = MacMood::Label::judgingYou},
          .createdAt = noon};
}

WidgetSnapshot someSnapshot() {
  return {.capturedAt = noon - 9s,
          .cpuUsageEstimate = 0.25,
          .memoryUtilizationEstimate = 0.91,
          .diskFreeBytes = 7,
          .batteryLevel = 87,
          .uptimeSeconds = 200'000,
          .runningAppCount = 24,
          .thermalState = RoastThermalState::fair,
          .mood = {.score = 1, .label = MacMood::Label::proud}};
}

class GroupStore : public ::testing::Test {
 protected:
  /// What a widget sees of `someRoast` and `someSnapshot`, with the generation put in.
  AppGroupStore::WidgetPayload somePayload(std::string generation) {
    return {.text = "Line one.\nLine two.",
            .category = "ram",
            .mood = "Judging You",
            .createdAt = noon,
            .ram = 0.91,
            .apps = 24,
            .uptimeDays = 2,
            .thermal = "fair",
            .battery = 87,
            .generation = std::move(generation)};
  }
  void publishSome() { store_.publish(someRoast(), someSnapshot()); }
  std::string file(const std::string& name) { return *storage_.readText(name); }

  fakes::FileTree tree_;
  fakes::Group<fakes::FixedClock, fakes::MemoryPreferenceStore> group_{tree_.root()};
  fakes::FixedClock& clock_ = group_.clock;
  fakes::MemoryPreferenceStore& preferences_ = group_.preferences;
  SharedStorage& storage_ = group_.storage;
  AppGroupStore& store_ = group_.store;
};

TEST_F(GroupStore, a_publication_is_one_transaction_of_fifteen_keys_and_four_files) {
  publishSome();
  EXPECT_EQ(preferences_.transactions, 1);
  EXPECT_EQ(preferences_.all()->size(), 15U);
  const auto token = preferences_.get<std::string>("generationToken").value();
  EXPECT_THAT(token, MatchesRegex(aUuid));
  EXPECT_EQ(preferences_.get<double>("snapAt"), epochSeconds(noon) - 9);
  EXPECT_EQ(preferences_.get<double>("generationAt"), epochSeconds(clock_.time));
  EXPECT_EQ(preferences_.get<std::string>("roastTemplateId"), "ram_1");
  EXPECT_EQ(file("currentRoast.txt"), token + "\nJudging You\nLine one.\nLine two.");
  EXPECT_EQ(storage_.read<LastRoast>("lastRoast.json"), someRoast());
  EXPECT_EQ(storage_.read<WidgetSnapshot>("widgetSnapshot.json"), someSnapshot());
  const auto generation = storage_.read<WidgetGeneration>("widgetGeneration.json").value();
  EXPECT_THAT(generation.token, MatchesRegex(aUuid));
  EXPECT_NE(generation.token, token);
  EXPECT_EQ(generation.updatedAt, clock_.time);
  EXPECT_EQ(generation.roastPreview, "Line one.\nLine two.");
}

TEST_F(GroupStore, what_is_absent_empties_or_removes_its_key) {
  publishSome();
  LastRoast roast = someRoast();
  roast.templateId.reset();
  WidgetSnapshot snapshot = someSnapshot();
  snapshot.batteryLevel.reset();
  store_.publish(roast, snapshot);
  EXPECT_EQ(preferences_.get<std::string>("roastTemplateId"), "");
  EXPECT_FALSE(preferences_.contains("battery"));
  EXPECT_EQ(store_.widgetPayload()->battery, std::nullopt);
}

TEST_F(GroupStore, a_record_that_cannot_be_encoded_leaves_the_last_one_of_its_kind) {
  publishSome();
  WidgetSnapshot mad = someSnapshot();
  mad.uptimeSeconds = std::numeric_limits<double>::infinity();
  store_.publish(someRoast(), mad);
  EXPECT_EQ(store_.widgetSnapshot(), someSnapshot());
}

TEST_F(GroupStore, readers_go_from_the_preferences_to_the_text_to_the_files) {
  EXPECT_EQ(store_.widgetPayload(), std::nullopt);
  publishSome();
  const std::string token = *preferences_.get<std::string>("generationToken");
  EXPECT_EQ(store_.widgetPayload(), somePayload(token));

  AppGroupStore::WidgetPayload fromText;
  fromText.text = "Line one.\nLine two.";
  fromText.mood = "Judging You";
  fromText.createdAt = clock_.time;
  fromText.generation = token;
  for (const char* unusable : {"", "Line\xff"}) {
    ASSERT_FALSE(preferences_.set("roastText", std::string(unusable)));
    EXPECT_EQ(store_.widgetPayload(), fromText) << unusable;
  }

  for (const char* unusable : {"token\nProud", "token\nProud\n", "", "token\nProud\n\xff"}) {
    ASSERT_FALSE(storage_.writeText(unusable, "currentRoast.txt"));
    const auto generation = storage_.read<WidgetGeneration>("widgetGeneration.json")->token;
    EXPECT_EQ(store_.widgetPayload(), somePayload(generation)) << unusable;
  }
  ASSERT_FALSE(storage_.writeText("no JSON", "widgetGeneration.json"));
  EXPECT_EQ(store_.widgetPayload(), somePayload("1794916800"));
  ASSERT_FALSE(storage_.writeText("no JSON", "widgetSnapshot.json"));
  EXPECT_EQ(store_.widgetPayload()->ram, std::nullopt);
  ASSERT_FALSE(storage_.writeText("no JSON", "lastRoast.json"));
  EXPECT_EQ(store_.widgetPayload(), std::nullopt);
}

TEST_F(GroupStore, keys_of_the_wrong_type_or_out_of_range_read_as_missing) {
  publishSome();
  ASSERT_FALSE(preferences_.set("roastAt", 0.0));
  ASSERT_FALSE(preferences_.set("uptime", 1e300));
  ASSERT_FALSE(preferences_.set("apps", 24.0));
  ASSERT_FALSE(preferences_.set("thermal", std::string("f\xc3")));
  ASSERT_FALSE(preferences_.remove("generationToken"));
  const auto payload = store_.widgetPayload().value();
  EXPECT_EQ(payload.createdAt, clock_.time);
  EXPECT_EQ(payload.uptimeDays, std::nullopt);
  EXPECT_EQ(payload.apps, std::nullopt);
  EXPECT_EQ(payload.thermal, std::nullopt);
  EXPECT_THAT(payload.generation, MatchesRegex(aUuid));
  ASSERT_FALSE(preferences_.set("roastAt", 1e300));
  EXPECT_EQ(store_.widgetPayload()->createdAt, clock_.time);
}

TEST_F(GroupStore, without_preferences_or_with_damaged_ones_the_two_records_come_from_their_files) {
  for (bool* const missing : {&preferences_.opens, &preferences_.takes}) {
    *missing = false;
    publishSome();
    EXPECT_EQ(store_.lastRoast(), someRoast());
    EXPECT_EQ(store_.widgetSnapshot(), someSnapshot());
    EXPECT_FALSE(storage_.readText("currentRoast.txt"));
    EXPECT_FALSE(storage_.readText("widgetGeneration.json"));
    *missing = true;
  }
  publishSome();
  ASSERT_FALSE(preferences_.set("lastRoastData", Bytes{std::byte{'{'}}));
  ASSERT_FALSE(preferences_.set("widgetSnapshotData", std::string("text")));
  EXPECT_EQ(store_.lastRoast(), someRoast());
  EXPECT_EQ(store_.widgetSnapshot(), someSnapshot());
}

TEST_F(GroupStore, without_a_container_the_preferences_still_get_their_keys) {
  const fakes::FixedContainer none(std::nullopt);
  const SharedStorage nowhere(none, group_.files, group_.random);
  AppGroupStore store(nowhere, preferences_, clock_, group_.random, group_.userText);
  store.publish(someRoast(), someSnapshot());
  EXPECT_EQ(store.lastRoast(), someRoast());
}

}  // namespace
}  // namespace quibbly
