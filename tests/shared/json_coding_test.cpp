#include "shared/json_coding.h"

#include <limits>

#include <gtest/gtest.h>

#include "fakes/samples.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;
using std::chrono::year;

const LastRoast roast{.text = "“Hot”\nnews",
                      .category = "thermal",
                      .ruleId = "thermal_high",
                      .templateId = std::nullopt,
                      .mood = {.score = 0.1, .label = MacMood::Label::preparingComplaint},
                      .createdAt = sys_days{year{2026} / 11 / 17}};

TEST(Iso8601Test, writes_and_reads_whole_seconds_in_utc_on_either_side_of_the_epoch) {
  const std::pair<Date, const char*> cases[] = {
      {sys_days{year{2025} / 3 / 1} + 18h + 4min + 9s + 999ms, "2025-03-01T18:04:09Z"},
      {sys_days{year{2024} / 2 / 29}, "2024-02-29T00:00:00Z"},
      {Date{} - 1ms, "1969-12-31T23:59:59Z"},
      {Date::max(), "2262-04-11T23:47:16Z"},
  };
  for (const auto& [date, text] : cases) {
    EXPECT_EQ(iso8601Text(date), text);
    EXPECT_EQ(dateFromIso8601(text), std::chrono::floor<std::chrono::seconds>(date));
  }
  for (const char* text : {"", "2025-03-01", "2025-02-29T00:00:00Z", "2025-13-01T00:00:00Z", "2025-03-01T24:00:00Z",
                           "2025-03-01T00:60:00Z", "2025-03-01T00:00:60Z", "2025-03-01T00:00:00.5Z",
                           "2025-03-01T00:00:00+01", "2025-03-01t00:00:00Z", "+025-03-01T00:00:00Z",
                           "0000-01-01T00:00:00Z", "2262-04-11T23:47:17Z", "9999-12-31T23:59:59Z"}) {
    EXPECT_EQ(dateFromIso8601(text), std::nullopt) << text;
  }
}

TEST(JsonCodingTest, a_roast_is_one_line_with_sorted_keys_and_without_what_is_absent_and_reads_back) {
  const auto text = encodeRecord(roast);
  EXPECT_EQ(text,
            R"({"category":"thermal","createdAt":"2026-11-17T00:00:00Z",)"
            R"("mood":{"label":"Preparing a Complaint","score":0.1},"ruleId":"thermal_high","text":"“Hot”\nnews"})");
  EXPECT_EQ(decodeRecord<LastRoast>(*text), roast);
}

TEST(JsonCodingTest, a_sample_is_keyed_by_its_fields) {
  SystemSnapshot sample = fakes::quietSample();
  sample.thermalState = RoastThermalState::fair;
  sample.isCharging.reset();
  sample.diskTotalBytes = std::numeric_limits<std::uint64_t>::max();
  const auto text = encodeRecord(sample);
  EXPECT_EQ(text, R"({"batteryLevel":80,"browserCount":0,"capturedAt":"1970-01-01T00:00:00Z","cpuUsage":0.0,)"
                  R"("diskFreeBytes":500000000000,"diskTotalBytes":18446744073709551615,"electronAppCount":0,)"
                  R"("lowPowerMode":false,"memoryUtilizationEstimate":0.5,"runningAppCount":8,"thermalState":"fair",)"
                  R"("uptimeSeconds":86400.0})");
  EXPECT_EQ(decodeRecord<SystemSnapshot>(*text), sample);
}

TEST(JsonCodingTest, a_double_that_is_no_number_is_refused_at_any_depth_and_broken_text_is_mended) {
  LastRoast broken = roast;
  broken.text = "a\xff";
  EXPECT_EQ(decodeRecord<LastRoast>(*encodeRecord(broken))->text, "a\uFFFD");
  for (const double score : {std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::infinity()}) {
    broken.mood.score = score;
    EXPECT_EQ(encodeRecord(broken), std::unexpected(JsonError::notFinite));
  }
}

/// The object of a roast, with some of it replaced.
std::string altered(const std::string& what, const std::string& by) {
  std::string text =
      R"({"category":"c","createdAt":"2026-11-17T00:00:00Z","mood":{"label":"Proud","score":1},"text":"t"})";
  return text.replace(text.find(what), what.size(), by);
}

TEST(JsonCodingTest, reads_an_object_only_when_every_value_is_of_its_kind) {
  const std::string deep(100'000, '[');
  const std::pair<std::string, bool> cases[] = {
      {altered("{", "{"), true},
      {altered("{", R"({"ruleId":null,"templateId":null,"extra":[1,{}],)"), true},
      {altered("{", R"({"text":"first",)"), true},
      {altered("{", R"({"ruleId":7,)"), false},
      {altered(R"("category":"c",)", ""), false},
      {altered(R"("category":"c")", R"("category":null)"), false},
      {altered(R"("Proud")", R"("proud")"), false},
      {altered(R"("Proud")", "0"), false},
      {altered(R"("score":1)", R"("score":"1")"), false},
      {altered(R"("score":1)", R"("score":1e400)"), false},
      {altered("2026-11-17T", "2026-11-31T"), false},
      {altered(R"("2026-11-17T00:00:00Z")", "1"), false},
      {altered("\"t\"", "\"\xff\""), false},
      {altered("\"t\"}", "\"t\"} x"), false},
      {altered("\"t\"}", "\"t\"}" + std::string(3, '\0')), false},
      {"", false},
      {"[]", false},
      {deep, false},
  };
  for (const auto& [text, decodes] : cases) {
    EXPECT_EQ(decodeRecord<LastRoast>(text).has_value(), decodes) << text.substr(0, 200);
  }
}

TEST(JsonCodingTest, integers_have_neither_a_fraction_nor_more_than_their_range) {
  const std::string sample = *encodeRecord(fakes::quietSample());
  const auto with = [&](const char* key, const char* value) {
    auto object = nlohmann::json::parse(sample);
    object[key] = nlohmann::json::parse(value);
    return decodeRecord<SystemSnapshot>(object.dump()).has_value();
  };
  EXPECT_TRUE(with("diskFreeBytes", "18446744073709551615"));
  EXPECT_FALSE(with("diskFreeBytes", "18446744073709551616"));
  EXPECT_FALSE(with("diskFreeBytes", "-1"));
  EXPECT_TRUE(with("runningAppCount", "-9223372036854775808"));
  EXPECT_FALSE(with("runningAppCount", "9223372036854775808"));
  EXPECT_FALSE(with("runningAppCount", "8.0"));
  EXPECT_FALSE(with("runningAppCount", "true"));
  EXPECT_FALSE(with("lowPowerMode", "0"));
  EXPECT_TRUE(with("cpuUsage", "1"));
}

TEST(JsonCodingTest, a_history_needs_both_of_its_lists) {
  EXPECT_EQ(decodeRecord<RecentRoastHistory>(R"({"templateIds":["a"],"texts":[]})"),
            (RecentRoastHistory{.texts = {}, .templateIds = {"a"}, .lastNotificationBody = {}}));
  for (const char* text :
       {"{}", R"({"texts":[]})", R"({"texts":[1],"templateIds":[]})", R"({"texts":{},"templateIds":[]})"}) {
    EXPECT_FALSE(decodeRecord<RecentRoastHistory>(text).has_value()) << text;
  }
}

}  // namespace
}  // namespace quibbly
