#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/cross_process_center.h"
#include "platform/wall_clock.h"
#include "shared/mailbox.h"
#include "shared/pending_notify.h"

namespace quibbly {

/// The mailbox in which the roast-me intent leaves a notification for the application to post. Main thread.
class PendingNotifyQueue {
 public:
  static constexpr std::string_view fileName = "pendingNotify.json";

  PendingNotifyQueue(const SharedStorage& storage, FileSystem& files, CrossProcessCenter& center,
                     const WallClock& clock)
      : box_(storage, files, fileName), center_(center), clock_(clock) {}

  /// Leaves the notification in place of an unread one and says so to the application, which is told also when the
  /// container cannot be written.
  void enqueue(std::string title, std::string body, std::string category);

  /// The pending notification, which is gone then.
  [[nodiscard]] std::optional<PendingNotify> take() const { return box_.take(); }
  [[nodiscard]] bool isEmpty() const { return box_.isEmpty(); }

 private:
  Mailbox<PendingNotify> box_;
  CrossProcessCenter& center_;
  const WallClock& clock_;
};

}  // namespace quibbly
