#include "platform/linux/icu_user_text.h"

#include <memory>

#include <unicode/ubrk.h>
#include <unicode/utext.h>

#include "platform/linux/text_encoding.h"

namespace quibbly::linux_services {
namespace {

struct CloseText {
  void operator()(UText* text) const { utext_close(text); }
};
struct CloseIterator {
  void operator()(UBreakIterator* iterator) const { ubrk_close(iterator); }
};

}  // namespace

bool IcuUserText::isUtf8(std::string_view text) const { return linux_services::isUtf8(text); }

std::string IcuUserText::firstCharacters(std::string_view text, std::size_t count) const {
  // A character is a byte at the least.
  if (text.size() <= count) return std::string(text);
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UText, CloseText> source(
      utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status));
  const std::unique_ptr<UBreakIterator, CloseIterator> characters(ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status));
  ubrk_setUText(characters.get(), source.get(), &status);
  std::int32_t end = 0;
  for (std::size_t i = 0; U_SUCCESS(status) != 0 && i < count && end != UBRK_DONE; ++i)
    end = ubrk_next(characters.get());
  // Without ICU's data there are no boundaries to be had; then the text is not cut.
  if (U_FAILURE(status) != 0 || end == UBRK_DONE) return std::string(text);
  return std::string(text.substr(0, static_cast<std::size_t>(end)));
}

}  // namespace quibbly::linux_services
