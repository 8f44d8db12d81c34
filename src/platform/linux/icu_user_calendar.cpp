#include "platform/linux/icu_user_calendar.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string_view>

#include <unicode/ucal.h>
#include <unicode/udat.h>
#include <unicode/udatpg.h>
#include <unicode/unistr.h>

namespace quibbly::linux_services {
namespace {

/// Year, abbreviated month, day, and the hour and minute as the locale counts hours.
constexpr std::u16string_view dateAndTimeParts = u"yMMMdjmm";
constexpr std::string_view posixLocale = "en_US_POSIX";

struct CloseCalendar {
  void operator()(UCalendar* calendar) const { ucal_close(calendar); }
};
struct CloseFormat {
  void operator()(UDateFormat* format) const { udat_close(format); }
};
struct ClosePatterns {
  void operator()(UDateTimePatternGenerator* patterns) const { udatpg_close(patterns); }
};
using Calendar = std::unique_ptr<UCalendar, CloseCalendar>;
using Format = std::unique_ptr<UDateFormat, CloseFormat>;
using Patterns = std::unique_ptr<UDateTimePatternGenerator, ClosePatterns>;

UDate icuDate(UserCalendar::Moment moment) {
  return std::chrono::duration<double, std::milli>(moment.time_since_epoch()).count();
}

UserCalendar::Moment momentOf(UDate date) {
  return UserCalendar::Moment(
      std::chrono::duration_cast<UserCalendar::Moment::duration>(std::chrono::duration<double, std::milli>(date)));
}

Calendar calendarAt(UserCalendar::Moment moment, const std::string& locale, const std::string& zone) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::UnicodeString zoneName = icu::UnicodeString::fromUTF8(zone);
  Calendar calendar(ucal_open(zoneName.getBuffer(), zoneName.length(), locale.c_str(), UCAL_DEFAULT, &status));
  ucal_setMillis(calendar.get(), icuDate(moment), &status);
  return calendar;
}

/// What a function of ICU writes into the room that it is given; empty when it fails.
template <typename Write>
icu::UnicodeString textFrom(const Write& write) {
  constexpr int room = 128;
  UErrorCode status = U_ZERO_ERROR;
  icu::UnicodeString text;
  const int length = write(text.getBuffer(room), room, &status);
  text.releaseBuffer(U_SUCCESS(status) != 0 ? length : 0);
  return text;
}

std::string utf8(const icu::UnicodeString& text) {
  std::string converted;
  return text.toUTF8String(converted);
}

/// A zone's file has its name: "/usr/share/zoneinfo/Europe/Lisbon". Others are links to one.
std::string zoneOfFile(std::string_view path) {
  constexpr std::string_view zones = "/zoneinfo/";
  std::error_code missing;
  const std::string file = std::filesystem::canonical(path, missing).string();
  const auto found = file.rfind(zones);
  if (missing || found == std::string::npos) return "UTC";
  std::string_view name = std::string_view(file).substr(found + zones.size());
  for (const std::string_view kind : {"posix/", "right/"}) {
    if (name.starts_with(kind)) name.remove_prefix(kind.size());
  }
  return std::string(name);
}

bool isKnownZone(std::string_view zone) {
  const auto name = icu::UnicodeString::fromUTF8(zone);
  UErrorCode status = U_ZERO_ERROR;
  UBool isSystemZone = 0;
  std::array<char16_t, 128> canonical{};
  ucal_getCanonicalTimeZoneID(name.getBuffer(), name.length(), canonical.data(), canonical.size(), &isSystemZone,
                              &status);
  return U_SUCCESS(status) != 0;
}

std::tm localTime(std::time_t moment) {
  std::tm local{};
  ::tzset();
  (void)::localtime_r(&moment, &local);
  return local;
}

std::string distanceToUtc() {
  const std::tm local = localTime(std::time(nullptr));
  const long minutes = std::labs(local.tm_gmtoff) / 60;
  std::array<char, 32> text{};
  (void)std::snprintf(text.data(), text.size(), "GMT%c%02ld:%02ld", local.tm_gmtoff < 0 ? '-' : '+', minutes / 60,
                      minutes % 60);
  return text.data();
}

/// The name of the user's time zone, as in "Europe/Lisbon". Rules without a name give the distance to UTC that they have
/// now, as in "GMT+03:30". By a zone that ICU does not know, days are those of UTC.
std::string hostZone() {
  const char* const set = std::getenv("TZ");
  std::string_view name = set != nullptr ? set : "";
  if (name.empty()) return utf8(textFrom(ucal_getHostTimeZone));
  if (name.starts_with(':')) name.remove_prefix(1);
  if (name.starts_with('/')) return zoneOfFile(name);
  return isKnownZone(name) ? std::string(name) : distanceToUtc();
}

int field(const Calendar& calendar, UCalendarDateFields which) {
  UErrorCode status = U_ZERO_ERROR;
  return ucal_get(calendar.get(), which, &status);
}

}  // namespace

std::string dateLocale(const DateLocaleNames& names) {
  for (const std::string_view name : {names.lcAll, names.lcTime, names.lang}) {
    if (name.empty()) continue;
    const std::string_view locale = name.substr(0, name.find_first_of(".@"));
    return locale == "C" || locale == "POSIX" ? std::string(posixLocale) : std::string(locale);
  }
  return std::string(posixLocale);
}

/// A table of the first calendar of each region is in calendarPreferenceData of Unicode's CLDR.
bool countsGregorianDays(std::string_view locale) {
  if (locale == posixLocale) return true;
  const std::size_t region = locale.rfind('_');
  if (region == std::string_view::npos) return false;
  constexpr auto others = std::to_array<std::string_view>({"AF", "IR", "SA", "TH"});
  return std::ranges::find(others, locale.substr(region + 1)) == others.end();
}

/// Asked all day long, and ICU takes two megabytes and a half of memory once it is asked anything.
UserCalendar::Day IcuUserCalendar::day(Moment moment) const {
  if (countsGregorianDays(locale_)) {
    const std::tm local = localTime(std::chrono::system_clock::to_time_t(moment));
    return {.year = local.tm_year + 1900, .month = local.tm_mon + 1, .day = local.tm_mday};
  }
  const Calendar calendar = calendarAt(moment, locale_, hostZone());
  return {.year = field(calendar, UCAL_YEAR),
          .month = field(calendar, UCAL_MONTH) + 1,
          .day = field(calendar, UCAL_DAY_OF_MONTH)};
}

UserCalendar::Moment IcuUserCalendar::startOfDay(Moment moment) const {
  const Calendar calendar = calendarAt(moment, locale_, hostZone());
  if (!calendar) return moment;  // ICU has lost its data
  // Where the clock is set back over midnight, the day begins the first time.
  ucal_setAttribute(calendar.get(), UCAL_REPEATED_WALL_TIME, UCAL_WALLTIME_FIRST);
  for (const UCalendarDateFields part : {UCAL_HOUR_OF_DAY, UCAL_MINUTE, UCAL_SECOND, UCAL_MILLISECOND}) {
    ucal_set(calendar.get(), part, 0);
  }
  UErrorCode status = U_ZERO_ERROR;
  return momentOf(ucal_getMillis(calendar.get(), &status));
}

std::string IcuUserCalendar::dateAndTime(Moment moment) const {
  const icu::UnicodeString zone = icu::UnicodeString::fromUTF8(hostZone());
  const icu::UnicodeString pattern = textFrom([&](char16_t* text, int room, UErrorCode* status) {
    const Patterns patterns(udatpg_open(locale_.c_str(), status));
    return udatpg_getBestPattern(patterns.get(), dateAndTimeParts.data(), static_cast<int>(dateAndTimeParts.size()),
                                 text, room, status);
  });
  return utf8(textFrom([&](char16_t* text, int room, UErrorCode* status) {
    const Format format(udat_open(UDAT_PATTERN, UDAT_PATTERN, locale_.c_str(), zone.getBuffer(), zone.length(),
                                  pattern.getBuffer(), pattern.length(), status));
    return udat_format(format.get(), icuDate(moment), text, room, nullptr, status);
  }));
}

}  // namespace quibbly::linux_services
