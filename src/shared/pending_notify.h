#pragma once

#include <string>

#include "records/date.h"

namespace quibbly {

/// What roasts are announced under.
inline constexpr const char* roastTitle = "Your Mac would like a word";

/// A notification that the roast-me intent asks the application to post.
struct PendingNotify {
  std::string title;
  std::string body;
  std::string category;
  /// When it was left.
  Date createdAt;

  bool operator==(const PendingNotify&) const = default;
};

}  // namespace quibbly
