#pragma once

#include <string>
#include <string_view>

#include "platform/user_calendar.h"

namespace quibbly::linux_services {

/// The values of the environment variables that name the locale of dates; empty when not set.
struct DateLocaleNames {
  std::string_view lcAll;
  std::string_view lcTime;
  std::string_view lang;
};

/// The locale of dates, in ICU's words; `en_US_POSIX` when none is set.
[[nodiscard]] std::string dateLocale(const DateLocaleNames& names);

/// Whether the users of a locale are known to count days as the Gregorian calendar does.
[[nodiscard]] bool countsGregorianDays(std::string_view locale);

/// Days and dates by the rules that ICU knows for a locale, in the time zone of `TZ`, else of the machine, as it is at each
/// call.
class IcuUserCalendar final : public UserCalendar {
 public:
  explicit IcuUserCalendar(std::string locale) : locale_(std::move(locale)) {}

  [[nodiscard]] Day day(Moment moment) const override;
  [[nodiscard]] Moment startOfDay(Moment moment) const override;
  [[nodiscard]] std::string dateAndTime(Moment moment) const override;

 private:
  std::string locale_;
};

}  // namespace quibbly::linux_services
