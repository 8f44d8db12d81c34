#pragma once

#include <string_view>

#include <QString>

namespace quibbly {

/// UTF-8 as Qt has text.
[[nodiscard]] inline QString qtText(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace quibbly
