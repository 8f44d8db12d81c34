#pragma once

#include <string>

namespace quibbly {

/// What the program says of itself.
struct ProgramVersion {
  std::string version = "0.1.0";
  std::string build = "1";
};

}  // namespace quibbly
