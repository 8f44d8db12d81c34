#include "shared/iso8601.h"

#include <array>
#include <chrono>
#include <cstdio>

namespace quibbly {
namespace {

/// The digits at a place of the text as a number; absent when one of them is no digit.
std::optional<unsigned> digits(std::string_view text, std::size_t at, std::size_t count) {
  unsigned number = 0;
  for (const char c : text.substr(at, count)) {
    if (c < '0' || c > '9') return std::nullopt;
    number = number * 10 + static_cast<unsigned>(c - '0');
  }
  return number;
}

/// What a date can hold, from 1677 to 2262: beyond that there is no moment to tell.
constexpr auto earliest = std::chrono::ceil<std::chrono::seconds>(Date::min());
constexpr auto latest = std::chrono::floor<std::chrono::seconds>(Date::max());

}  // namespace

std::string iso8601Text(Date date) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(date);
  const auto midnight = std::chrono::floor<std::chrono::days>(seconds);
  const std::chrono::year_month_day day(midnight);
  const std::chrono::hh_mm_ss time(seconds - midnight);
  std::array<char, 32> text{};
  (void)std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(day.year()),
                      static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()),
                      static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                      static_cast<int>(time.seconds().count()));
  return text.data();
}

std::optional<Date> dateFromIso8601(std::string_view text) {
  constexpr std::string_view form = "0000-00-00T00:00:00Z";
  if (text.size() != form.size()) return std::nullopt;
  for (std::size_t i = 0; i < form.size(); ++i) {
    if (form[i] != '0' && text[i] != form[i]) return std::nullopt;
  }
  const auto year = digits(text, 0, 4);
  const auto month = digits(text, 5, 2);
  const auto day = digits(text, 8, 2);
  const auto hour = digits(text, 11, 2);
  const auto minute = digits(text, 14, 2);
  const auto second = digits(text, 17, 2);
  if (!year || !month || !day || !hour || !minute || !second) return std::nullopt;

  const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(*year)), std::chrono::month(*month),
                                         std::chrono::day(*day));
  if (!date.ok() || *hour > 23 || *minute > 59 || *second > 59) return std::nullopt;
  const std::chrono::sys_seconds moment = std::chrono::sys_days(date) + std::chrono::hours(*hour) +
                                          std::chrono::minutes(*minute) + std::chrono::seconds(*second);
  if (moment < earliest || moment > latest) return std::nullopt;
  return moment;
}

}  // namespace quibbly
