#include "platform/linux/systemd_units.h"

#include "fuzz/fuzzer.h"

namespace quibbly::fuzz {
namespace {

/// As systemd escapes what is no letter and no digit, and more of it.
std::string escaped(std::string_view id) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (const char c : id) {
    const auto byte = static_cast<unsigned char>(c);
    text += {'\\', 'x', digits[byte / digits.size()], digits[byte % digits.size()]};
  }
  return text;
}

}  // namespace

void tryInput(std::string_view input) {
  if (input.contains('\0')) return;  // a unit's name is that of a directory
  const auto id = linux_services::applicationIdOfUnit(input);
  if (!id) return;
  demand(!id->empty() && !id->contains('\0'), "an id is a name");
  demand(linux_services::applicationIdOfUnit("app-" + escaped(*id) + "-1.scope") == id, "an escaped id is the same id");
}

}  // namespace quibbly::fuzz
