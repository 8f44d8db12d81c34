#pragma once

#include <string>

#include "records/date.h"

namespace quibbly {

/// A wish for a new roast, left by the widget side for the application.
struct RoastRequest {
  Date createdAt;
  /// Names the requester; not interpreted.
  std::string source;

  bool operator==(const RoastRequest&) const = default;
};

}  // namespace quibbly
