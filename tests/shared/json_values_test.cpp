#include "shared/json_values.h"

#include <limits>

#include <gtest/gtest.h>

#include "shared/iso8601.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;
using std::chrono::year;

TEST(Iso8601Test, writes_whole_seconds_in_utc_on_either_side_of_the_epoch) {
  const std::pair<Date, const char*> cases[] = {
      {sys_days{year{2025} / 3 / 1} + 18h + 4min + 9s + 999ms, "2025-03-01T18:04:09Z"},
      {sys_days{year{2024} / 2 / 29}, "2024-02-29T00:00:00Z"},
      {Date{} - 1ms, "1969-12-31T23:59:59Z"},
  };
  for (const auto& [date, text] : cases) EXPECT_EQ(iso8601Text(date), text);
}

TEST(JsonValuesTest, a_roast_is_one_line_with_sorted_keys_and_without_what_is_absent) {
  LastRoast roast{.text = "“Hot”\nnews",
                  .category = "thermal",
                  .ruleId = "thermal_high",
                  .templateId = std::nullopt,
                  .mood = {.score = 0.1, .label = MacMood::Label::preparingComplaint},
                  .createdAt = sys_days{year{2026} / 11 / 17}};
  EXPECT_EQ(jsonText(jsonOf(roast)),
            R"({"category":"thermal","createdAt":"2026-11-17T00:00:00Z",)"
            R"("mood":{"label":"Preparing a Complaint","score":0.1},"ruleId":"thermal_high","text":"“Hot”\nnews"})");
}

TEST(JsonValuesTest, a_double_that_is_no_number_is_refused_at_any_depth) {
  for (const double score : {std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::infinity()}) {
    const LastRoast roast{
        .text = "", .category = "", .ruleId = {}, .templateId = {}, .mood = {.score = score}, .createdAt = {}};
    EXPECT_EQ(jsonText(jsonOf(roast)), std::unexpected(JsonTextError::notFinite));
  }
}

TEST(JsonValuesTest, large_integers_keep_every_digit_and_broken_text_is_mended) {
  EXPECT_EQ(jsonText({{"bytes", std::numeric_limits<std::uint64_t>::max()}}), R"({"bytes":18446744073709551615})");
  EXPECT_EQ(jsonText({{"name", "a\xff"}}), "{\"name\":\"a\uFFFD\"}");
}

}  // namespace
}  // namespace quibbly
