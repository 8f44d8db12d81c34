#include "platform/linux/icu_user_calendar.h"

#include <cstdlib>

#include <gtest/gtest.h>

namespace quibbly::linux_services {
namespace {

using namespace std::chrono_literals;

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
  for (const auto& [names, text] : cases) {
    EXPECT_EQ(IcuUserCalendar(dateLocale(names), [] { return "Europe/London"; }).dateAndTime(moment), text);
  }
  EXPECT_EQ(IcuUserCalendar("en_GB").timeOfDay(moment), "00:30");
}

TEST(UserCalendar, writes_english_when_nobody_says_otherwise) {
  EXPECT_EQ(dateLocale({}), "en_US_POSIX");
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
    ::setenv("TZ", zone, 1);
    EXPECT_EQ(calendar.dateAndTime(moment), text) << zone;
  }
  ::unsetenv("TZ");
}

}  // namespace
}  // namespace quibbly::linux_services
