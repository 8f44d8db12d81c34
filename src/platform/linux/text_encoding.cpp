#include "platform/linux/text_encoding.h"

#include <cstdint>
#include <limits>

#include <unicode/ustring.h>

namespace quibbly::linux_services {

bool isUtf8(std::string_view text) {
  if (text.size() > std::numeric_limits<std::int32_t>::max()) return false;
  // Converting into no room at all counts the characters, and stops at bytes that make none.
  UErrorCode status = U_ZERO_ERROR;
  u_strFromUTF8(nullptr, 0, nullptr, text.data(), static_cast<std::int32_t>(text.size()), &status);
  return status != U_INVALID_CHAR_FOUND && status != U_ILLEGAL_ARGUMENT_ERROR;
}

}  // namespace quibbly::linux_services
