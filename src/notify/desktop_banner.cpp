#include "notify/desktop_banner.h"

#include <utility>

namespace quibbly {
namespace {

using namespace std::chrono_literals;

constexpr int belowTheTop = 10;
constexpr auto fade = 250ms;

BannerFrame frameWithin(const BannerFrame& visible) {
  return {.x = visible.x + (visible.width - BannerFrame::toastWidth) / 2,
          .y = visible.y + belowTheTop,
          .width = BannerFrame::toastWidth,
          .height = BannerFrame::toastHeight};
}

}  // namespace

DesktopBanner::~DesktopBanner() {
  if (hideWork_) queue_.cancel(*hideWork_);
}

void DesktopBanner::show(std::string title, std::string body, std::chrono::milliseconds duration) {
  if (hideWork_) queue_.cancel(*hideWork_);
  if (const auto old = std::exchange(panel_, nullptr)) old->orderOut();
  panel_ = screen_.makePanel({.title = std::move(title), .message = std::move(body)});
  if (const auto visible = screen_.visibleFrame()) panel_->setFrame(frameWithin(*visible));
  panel_->orderFront();
  hideWork_ = queue_.runAt(queue_.now() + duration, [this] { dismiss(); });
}

void DesktopBanner::dismiss() {
  // A fade that ends after its panel has gone, with this banner or for a new toast, has nothing left to do.
  panel_->fadeOut(fade, [this, fading = std::weak_ptr(panel_)] {
    if (fading.expired()) return;
    panel_->orderOut();
    panel_ = nullptr;
  });
}

}  // namespace quibbly
