#pragma once

#include <chrono>
#include <string>

namespace quibbly {

/// Days and dates as the user counts and writes them: in the calendar of the user's locale and in the time zone of the
/// moment of asking, which may change while the program runs. Main thread.
class UserCalendar {
 public:
  using Moment = std::chrono::system_clock::time_point;

  struct Day {
    int year = 0;
    /// From 1.
    int month = 0;
    /// From 1.
    int day = 0;
  };

  virtual ~UserCalendar() = default;
  [[nodiscard]] virtual Day day(Moment moment) const = 0;
  /// The first moment of the day that the moment is in: 00:00, or where a change of the clock leaves that out, what
  /// comes in its place.
  [[nodiscard]] virtual Moment startOfDay(Moment moment) const = 0;
  /// An abbreviated date with a short time, as in "17 Nov 2026, 00:00"; the order and the words are the locale's.
  [[nodiscard]] virtual std::string dateAndTime(Moment moment) const = 0;
};

}  // namespace quibbly
