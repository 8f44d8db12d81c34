#include <limits>
#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "records/intensity.h"
#include "records/mac_mood.h"
#include "records/random_roast_interval.h"
#include "records/recent_roast_history.h"
#include "records/units.h"

namespace quibbly {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> numbered(const std::string& prefix, int count) {
  std::vector<std::string> entries;
  for (int i = 1; i <= count; ++i) entries.push_back(prefix + std::to_string(i));
  return entries;
}

TEST(RecentRoastHistoryTest, a_new_roast_stands_in_front_and_the_thirteenth_falls_off_the_end) {
  const RecentRoastHistory full{
      .texts = numbered("text", 12), .templateIds = numbered("id", 12), .lastNotificationBody = "said"};

  const RecentRoastHistory updated = full.recording("new", "new_1");

  RecentRoastHistory expected{
      .texts = numbered("text", 11), .templateIds = numbered("id", 11), .lastNotificationBody = "said"};
  expected.texts.insert(expected.texts.begin(), "new");
  expected.templateIds.insert(expected.templateIds.begin(), "new_1");
  EXPECT_EQ(updated, expected);
}

TEST(RecentRoastHistoryTest, a_repeated_text_is_kept_and_an_absent_template_id_changes_texts_only) {
  const auto updated = RecentRoastHistory::empty.recording("same", "id_1").recording("same", std::nullopt);
  EXPECT_THAT(updated.texts, ElementsAre("same", "same"));
  EXPECT_THAT(updated.templateIds, ElementsAre("id_1"));
}

TEST(RandomRoastIntervalTest, a_stored_number_of_minutes_that_is_no_interval_means_off) {
  using enum RandomRoastInterval;
  const std::pair<std::int64_t, RandomRoastInterval> cases[] = {
      {0, off}, {1, oneMinute}, {5, fiveMinutes}, {15, fifteenMinutes}, {30, thirtyMinutes}, {60, sixtyMinutes},
      {7, off}, {-1, off},      {120, off}};
  for (const auto& [stored, interval] : cases) EXPECT_EQ(randomRoastIntervalFromStored(stored), interval) << stored;
}

TEST(RawValueTest, what_is_stored_and_shown_by_name_keeps_its_name) {
  using enum MacMood::Label;
  const std::pair<MacMood::Label, std::string_view> moods[] = {
      {disappointed, "Disappointed"}, {judgingYou, "Judging You"}, {requestingNewOwner, "Requesting a New Owner"}};
  for (const auto& [mood, name] : moods) EXPECT_EQ(rawValue(mood), name);
  const std::tuple<Intensity, std::string_view, std::string_view> tones[] = {{Intensity::gentle, "gentle", "Gentle"},
                                                                             {Intensity::savage, "savage", "Savage"}};
  for (const auto& [tone, stored, shown] : tones) {
    EXPECT_EQ(rawValue(tone), stored);
    EXPECT_EQ(displayText(tone), shown);
  }
}

TEST(UnitsTest, doubles_become_integers_without_a_fault_at_any_size) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  constexpr auto largest = std::numeric_limits<std::int64_t>::max();
  constexpr auto smallest = std::numeric_limits<std::int64_t>::min();
  const std::pair<double, std::int64_t> truncated[] = {{73.9, 73},
                                                       {-73.9, -73},
                                                       {0x1p63, largest},
                                                       {infinity, largest},
                                                       {-infinity, smallest},
                                                       {-0x1p63, smallest},
                                                       {std::numeric_limits<double>::quiet_NaN(), 0}};
  for (const auto& [number, integer] : truncated) EXPECT_EQ(truncatedToInteger(number), integer) << number;

  const std::pair<double, std::int64_t> percents[] = {{0.855, 86}, {0.9951, 100}, {0.8449, 84}, {-0.005, -1}, {0, 0}};
  for (const auto& [fraction, percent] : percents) EXPECT_EQ(wholePercent(fraction), percent) << fraction;
}

}  // namespace
}  // namespace quibbly
