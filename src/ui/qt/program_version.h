#pragma once

#include <string>

namespace quibbly {

/// What the program says of itself.
struct ProgramVersion {
  std::string version = QUIBBLY_VERSION;
  std::string build = QUIBBLY_BUILD;
};

}  // namespace quibbly
