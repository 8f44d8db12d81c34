#pragma once

#include <string>

namespace quibbly {

/// Why a command did nothing: one line for the user, and the program's exit status.
struct Complaint {
  static constexpr int failed = 1;
  static constexpr int badCommandLine = 2;

  int status = failed;
  std::string line;

  bool operator==(const Complaint&) const = default;
};

}  // namespace quibbly
