#include "platform/linux/icu_user_calendar.h"

#include <tuple>

#include <gtest/gtest.h>

#include "fakes/time_zone.h"

namespace quibbly::linux_services {
namespace {

using namespace std::chrono_literals;
using fakes::TimeZone;

TEST(UserCalendar, writes_dates_as_the_locale_of_dates_does) {
  struct Case {
    DateLocaleNames names;
    std::string text;
  };
  const Case cases[] = {
      {{.lcAll = "", .lcTime = "en_GB.UTF-8", .lang = "de_DE.UTF-8"}, "17 Nov 2026, 00:30"},
      {{.lcAll = "de_DE@euro", .lcTime = "en_GB", .lang = ""}, "17. Nov. 2026, 00:30"},
      {{.lcAll = "", .lcTime = "", .lang = "fr_FR"}, "17 nov. 2026, 00:30"},
  };
  const auto moment = std::chrono::sys_days{std::chrono::year{2026} / 11 / 17} + 30min;
  const TimeZone zone("Europe/London");
  for (const auto& [names, text] : cases) {
    EXPECT_EQ(IcuUserCalendar(dateLocale(names)).dateAndTime(moment), text);
  }
  EXPECT_EQ(dateLocale({}), "en_US_POSIX") << "English when nobody says otherwise";
  EXPECT_EQ(dateLocale({.lcAll = "C.UTF-8", .lcTime = "de_DE", .lang = ""}), "en_US_POSIX");
}

TEST(UserCalendar, follows_a_time_zone_that_changes_while_it_runs) {
  const IcuUserCalendar calendar("en_GB");
  const auto moment = std::chrono::sys_days{std::chrono::year{2026} / 11 / 17} + 30min;
  const std::pair<const char*, const char*> cases[] = {{"Europe/London", "17 Nov 2026, 00:30"},
                                                       {":America/New_York", "16 Nov 2026, 19:30"},
                                                       {"/usr/share/zoneinfo/Asia/Tokyo", "17 Nov 2026, 09:30"},
                                                       {"<+0330>-3:30", "17 Nov 2026, 04:00"},
                                                       {"XST5", "16 Nov 2026, 19:30"},
                                                       {"/no/such/zone", "17 Nov 2026, 00:30"}};
  for (const auto& [zone, text] : cases) {
    const TimeZone moved(zone);
    EXPECT_EQ(calendar.dateAndTime(moment), text) << zone;
  }
}

TEST(UserCalendar, counts_days_in_the_calendar_of_the_region_and_in_the_zone_of_the_moment) {
  struct Case {
    const char* locale;
    const char* zone;
    UserCalendar::Day day;
  };
  const Case cases[] = {
      {"en_GB", "Europe/London", {.year = 2026, .month = 11, .day = 17}},
      {"en_GB", "America/New_York", {.year = 2026, .month = 11, .day = 16}},
      {"en_US_POSIX", "<+0330>-3:30", {.year = 2026, .month = 11, .day = 17}},
      {"th_TH", "Asia/Bangkok", {.year = 2569, .month = 11, .day = 17}},
      {"fa_IR", "Asia/Tehran", {.year = 1405, .month = 8, .day = 26}},
      {"fa", "America/New_York", {.year = 1405, .month = 8, .day = 25}},
  };
  const auto moment = std::chrono::sys_days{std::chrono::year{2026} / 11 / 17} + 30min;
  for (const auto& [locale, zone, expected] : cases) {
    const TimeZone moved(zone);
    const UserCalendar::Day day = IcuUserCalendar(locale).day(moment);
    EXPECT_EQ(std::tuple(day.year, day.month, day.day), std::tuple(expected.year, expected.month, expected.day))
        << locale << " in " << zone;
  }
}

}  // namespace
}  // namespace quibbly::linux_services
