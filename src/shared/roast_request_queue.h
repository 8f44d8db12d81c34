#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "platform/cross_process_center.h"
#include "shared/mailbox.h"
#include "shared/observer_token.h"
#include "shared/roast_request.h"

namespace quibbly {

/// The mailbox in which the widget side asks for a roast, and the notification that says that a mailbox may have been
/// filled. Main thread.
class RoastRequestQueue {
 public:
  /// The name of the notification.
  static constexpr std::string_view darwinName = "org.quibbly.Quibbly.roastRequest";

  static constexpr std::string_view fileName = "roastRequest.json";

  RoastRequestQueue(const SharedStorage& storage, FileSystem& files, CrossProcessCenter& center)
      : box_(storage, files, fileName), center_(center) {}

  /// The pending request, which is gone then.
  [[nodiscard]] std::optional<RoastRequest> take() const { return box_.take(); }
  [[nodiscard]] bool isEmpty() const { return box_.isEmpty(); }

  /// Calls the handler for each notification until `stopObserving` is given the token, exactly once. What is registered
  /// belongs to the centre until then.
  [[nodiscard]] ObserverToken observe(std::function<void()> handler);
  void stopObserving(const ObserverToken& token);

 private:
  Mailbox<RoastRequest> box_;
  CrossProcessCenter& center_;
};

}  // namespace quibbly
