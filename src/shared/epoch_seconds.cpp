#include "shared/epoch_seconds.h"

#include <array>
#include <charconv>
#include <chrono>

namespace quibbly {

double epochSeconds(Date date) { return std::chrono::duration<double>(date.time_since_epoch()).count(); }

std::optional<Date> dateFromEpochSeconds(double seconds) {
  constexpr std::chrono::duration<double> latest = Date::max().time_since_epoch();
  if (!(seconds > -latest.count() && seconds < latest.count())) return std::nullopt;
  return Date(std::chrono::duration_cast<Date::duration>(std::chrono::duration<double>(seconds)));
}

std::string shortestText(double number) {
  std::array<char, 400> digits{};  // more than any double takes without an exponent
  const char* const end =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed).ptr;
  return {digits.data(), static_cast<std::size_t>(end - digits.data())};
}

}  // namespace quibbly
