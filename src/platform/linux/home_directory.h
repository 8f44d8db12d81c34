#pragma once

#include <filesystem>

namespace quibbly::linux_services {

/// The user's home directory: $HOME when that is an absolute path, else what the password database says, else "/".
[[nodiscard]] std::filesystem::path homeDirectory();

}  // namespace quibbly::linux_services
