#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include <QString>

namespace quibbly {

/// UTF-8 as Qt has text.
[[nodiscard]] inline QString qtText(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// The time of day in the short style of the user's locale, as in "14:05".
[[nodiscard]] std::string shortTime(std::chrono::system_clock::time_point moment);

}  // namespace quibbly
