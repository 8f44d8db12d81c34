#include "shared/iso8601.h"

#include <array>
#include <chrono>
#include <cstdio>

namespace quibbly {

std::string iso8601Text(Date date) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(date);
  const auto midnight = std::chrono::floor<std::chrono::days>(seconds);
  const std::chrono::year_month_day day(midnight);
  const std::chrono::hh_mm_ss time(seconds - midnight);
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(day.year()),
                static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()),
                static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                static_cast<int>(time.seconds().count()));
  return text.data();
}

}  // namespace quibbly
