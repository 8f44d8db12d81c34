#include "shared/pending_notify_queue.h"

#include <utility>

#include "shared/roast_request_queue.h"

namespace quibbly {

void PendingNotifyQueue::enqueue(std::string title, std::string body, std::string category) {
  const PendingNotify entry{
      .title = std::move(title), .body = std::move(body), .category = std::move(category), .createdAt = clock_.now()};
  [[maybe_unused]] const std::error_code notLeft = box_.put(entry);
  center_.post(RoastRequestQueue::darwinName);
}

}  // namespace quibbly
