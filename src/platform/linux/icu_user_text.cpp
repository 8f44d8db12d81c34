#include "platform/linux/icu_user_text.h"

#include <memory>

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
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

icu::UnicodeString unicode(std::string_view text) {
  return icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
}

constexpr UChar32 zeroWidthJoiner = 0x200D;
constexpr UChar32 asEmoji = 0xFE0F;  // the variation selector behind a character that is also a plain sign

/// Whether the selector makes an emoji, two columns wide, of the sign before it. Behind anything else it shows nothing, and
/// may even begin a character of its own.
bool makesEmoji(UChar32 selector, UChar32 before) {
  return selector == asEmoji && u_hasBinaryProperty(before, UCHAR_EMOJI) != 0;
}

/// The columns of a character that stands alone.
std::size_t columnsOf(UChar32 character) {
  if ((U_GET_GC_MASK(character) & (U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK)) != 0) return 0;
  if (u_hasBinaryProperty(character, UCHAR_REGIONAL_INDICATOR) != 0) return 1;  // two of them are a flag
  if (u_hasBinaryProperty(character, UCHAR_EMOJI_MODIFIER) != 0) return 0;
  const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

/// The separators of Unicode, the tab, and what ends a line.
bool isSpaceOrLineEnd(UChar32 character) {
  constexpr UChar32 nextLine = 0x85;
  return (U_GET_GC_MASK(character) & U_GC_Z_MASK) != 0 || (character >= '\t' && character <= '\r') ||
         character == nextLine;
}

/// None of these characters takes two units of UTF-16.
icu::UnicodeString trimmed(const icu::UnicodeString& text) {
  std::int32_t begin = 0;
  std::int32_t end = text.length();
  while (begin < end && isSpaceOrLineEnd(text.char32At(begin))) ++begin;
  while (end > begin && isSpaceOrLineEnd(text.char32At(end - 1))) --end;
  return {text, begin, end - begin};
}

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

std::size_t IcuUserText::columns(std::string_view text) const {
  const icu::UnicodeString characters = unicode(text);
  std::size_t columns = 0;
  std::size_t last = 0;
  UChar32 before = 0;
  for (std::int32_t i = 0; i < characters.length(); i = characters.moveIndex32(i, 1)) {
    const UChar32 character = characters.char32At(i);
    if (last == 1 && makesEmoji(character, before)) ++columns;
    if (before != zeroWidthJoiner) columns += last = columnsOf(character);
    before = character;
  }
  return columns;
}

std::string IcuUserText::comparable(std::string_view text) const {
  UErrorCode status = U_ZERO_ERROR;
  icu::UnicodeString folded = trimmed(unicode(text));
  folded.toLower(icu::Locale::getRoot());
  std::string utf8;
  icu::Normalizer2::getNFCInstance(status)->normalize(folded, status).toUTF8String(utf8);
  return utf8;
}

}  // namespace quibbly::linux_services
