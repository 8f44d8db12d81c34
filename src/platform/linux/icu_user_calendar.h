#pragma once

#include <functional>
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

/// Days and dates by the rules that ICU knows for a locale.
class IcuUserCalendar final : public UserCalendar {
 public:
  /// Gives the name of the user's time zone, as in "Europe/Lisbon". By one that ICU does not know, days are those of UTC.
  using Zone = std::function<std::string()>;

  explicit IcuUserCalendar(std::string locale, Zone zone = hostZone)
      : locale_(std::move(locale)), zone_(std::move(zone)) {}

  [[nodiscard]] Day day(Moment moment) const override;
  [[nodiscard]] Moment startOfDay(Moment moment) const override;
  [[nodiscard]] std::string dateAndTime(Moment moment) const override;
  [[nodiscard]] std::string timeOfDay(Moment moment) const override;

  /// That of `TZ`, else of the machine, as it is now. Rules without a name give the distance to UTC that they have now,
  /// as in "GMT+03:30".
  [[nodiscard]] static std::string hostZone();

 private:
  [[nodiscard]] std::string written(Moment moment, std::u16string_view parts) const;

  std::string locale_;
  Zone zone_;
};

}  // namespace quibbly::linux_services
