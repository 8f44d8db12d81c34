#pragma once

#include <string>
#include <utility>

namespace quibbly {

/// Why a roast was not, or not visibly, announced by the desktop.
class NotificationPostError {
 public:
  enum class Kind {
    /// The notification service refused it.
    requestFailed,
    denied,
    /// It was posted, but will not come up on the screen.
    bannersDisabled,
    /// The same text was announced lately.
    duplicate,
  };

  /// The service's own words go with `requestFailed`, and with nothing else.
  explicit NotificationPostError(Kind kind, std::string payload = "") : kind_(kind), payload_(std::move(payload)) {}

  [[nodiscard]] Kind kind() const { return kind_; }
  /// For the user to read.
  [[nodiscard]] std::string description() const;

  bool operator==(const NotificationPostError&) const = default;

 private:
  Kind kind_;
  std::string payload_;
};

}  // namespace quibbly
