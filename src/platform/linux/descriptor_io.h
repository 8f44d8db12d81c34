#pragma once

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>
#include <system_error>

namespace quibbly::linux_services {

/// What the descriptor still has to give, at most `limit` bytes of it. `expected` is a guess of how much that is.
[[nodiscard]] std::expected<std::string, std::error_code> readUpTo(int descriptor, std::size_t limit,
                                                                   std::size_t expected = 0);

/// Writes the whole text; an empty error code means that it was.
[[nodiscard]] std::error_code writeAll(int descriptor, std::string_view text);

}  // namespace quibbly::linux_services
