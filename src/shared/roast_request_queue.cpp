#include "shared/roast_request_queue.h"

#include <memory>
#include <utility>

#include "shared/handler_box.h"

namespace quibbly {
namespace {

void callHandler(void* observer) {
  if (!observer) return;
  const HandlerBox kept = *static_cast<HandlerBox*>(observer);  // it may stop observing
  kept.handler();
}

}  // namespace

ObserverToken RoastRequestQueue::observe(std::function<void()> handler) {
  auto box = std::make_unique<HandlerBox>(std::move(handler));
  center_.addObserver(box.get(), &callHandler, darwinName);
  return ObserverToken(box.release());
}

void RoastRequestQueue::stopObserving(const ObserverToken& token) {
  center_.removeObserver(token.observer, darwinName);
  const std::unique_ptr<HandlerBox> released(static_cast<HandlerBox*>(token.observer));
}

}  // namespace quibbly
