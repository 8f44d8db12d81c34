#pragma once

#include "platform/user_text.h"

namespace quibbly::linux_services {

/// Text by the Unicode rules that ICU knows (UAX 29, extended grapheme clusters), which no locale changes.
class IcuUserText final : public UserText {
 public:
  [[nodiscard]] bool isUtf8(std::string_view text) const override;
  [[nodiscard]] std::string firstCharacters(std::string_view text, std::size_t count) const override;
  [[nodiscard]] std::size_t columns(std::string_view text) const override;
  [[nodiscard]] std::string comparable(std::string_view text) const override;
};

}  // namespace quibbly::linux_services
