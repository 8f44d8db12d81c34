#pragma once

#include <string_view>

namespace quibbly::linux_services {

/// Whether the whole text is well-formed UTF-8: names from files and from other programs go into JSON, which takes
/// nothing else.
[[nodiscard]] bool isUtf8(std::string_view text);

}  // namespace quibbly::linux_services
