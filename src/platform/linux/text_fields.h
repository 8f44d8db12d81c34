#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace quibbly::linux_services {

/// The pieces of the text that white space separates; they point into it.
[[nodiscard]] std::vector<std::string_view> fieldsOf(std::string_view text);

/// The text without the white space around it.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// The decimal number that the whole text is; absent for anything else, also for one that does not fit.
[[nodiscard]] std::optional<std::int64_t> parseInteger(std::string_view text);

/// The same without a sign.
[[nodiscard]] std::optional<std::uint64_t> parseUnsigned(std::string_view text);

}  // namespace quibbly::linux_services
