#include <algorithm>
#include <cstdint>
#include <string>

#include "fuzz/fuzzer.h"
#include "platform/linux/icu_user_text.h"
#include "platform/linux/text_encoding.h"
#include "platform/linux/text_fields.h"
#include "platform/printable.h"

namespace quibbly::fuzz {
namespace {

using namespace linux_services;

void tryFields(std::string_view text) {
  for (const std::string_view field : fieldsOf(text)) {
    demand(!field.empty() && trimmed(field) == field && fieldsOf(field).size() == 1, "a field holds no white space");
  }
  const auto number = parseInteger(text);
  demand(!number || parseInteger(std::to_string(*number)) == number, "a number is that of its digits");
  demand(!number || text.starts_with('-') || parseUnsigned(text) == static_cast<std::uint64_t>(*number),
         "a sign is all they differ in");
}

void tryPrintable(std::string_view text) {
  const std::string shown = printable(text);
  demand(isUtf8(shown), "what is printable is UTF-8");
  demand(printable(shown) == shown, "what is printable stays as it is");
  demand(std::ranges::none_of(shown, [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; }), "nothing steers");
}

void tryUserText(std::string_view text) {
  const IcuUserText userText;
  for (const std::size_t count : {0U, 1U, 2U, 80U}) {
    const std::string first = userText.firstCharacters(text, count);
    demand(text.starts_with(first) && isUtf8(first), "the first characters are whole");
    demand(userText.firstCharacters(first, count) == first, "the first characters are no more than were asked for");
    demand(count == 0 || text.empty() || !first.empty(), "a text has a first character");
  }
  const std::string shown = printable(text);
  std::size_t columns = 0;
  for (std::string_view rest = shown; !rest.empty();) {
    const std::string character = userText.firstCharacters(rest, 1);
    columns += userText.columns(character);
    rest.remove_prefix(character.size());
  }
  demand(userText.columns(shown) <= columns, "a text is no wider than its characters");
  demand(userText.comparable("\t" + std::string(text) + "\n") == userText.comparable(text),
         "white space is no difference");
}

}  // namespace

void tryInput(std::string_view input) {
  tryFields(input);
  if (!isUtf8(input)) return;
  tryPrintable(input);
  tryUserText(input);
}

}  // namespace quibbly::fuzz
