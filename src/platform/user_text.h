#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quibbly {

/// Text as people see it. Any thread.
class UserText {
 public:
  virtual ~UserText() = default;
  /// Whether the bytes are UTF-8.
  [[nodiscard]] virtual bool isUtf8(std::string_view text) const = 0;
  /// The first so many characters as people count them: an emoji family, a flag, a letter with its accents are one each.
  /// The whole text when it has no more.
  [[nodiscard]] virtual std::string firstCharacters(std::string_view text, std::size_t count) const = 0;
  /// How many columns of a terminal the text takes, which must not steer it: two for East Asian and for most emoji, none
  /// for what joins the character before.
  [[nodiscard]] virtual std::size_t columns(std::string_view text) const = 0;
  /// What texts have in common that differ only in case, in white space and line ends at either end, or in how Unicode
  /// writes their characters.
  [[nodiscard]] virtual std::string comparable(std::string_view text) const = 0;
};

}  // namespace quibbly
