#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "notify/banner_screen.h"
#include "platform/main_queue.h"

namespace quibbly {

/// The application's own toast: a small panel near the top of the screen that goes by itself. There is one at a time, and a
/// new one takes the place of the old at once. Main thread.
class DesktopBanner {
 public:
  DesktopBanner(MainQueue& queue, BannerScreen& screen) : queue_(queue), screen_(screen) {}
  DesktopBanner(const DesktopBanner&) = delete;
  DesktopBanner& operator=(const DesktopBanner&) = delete;
  ~DesktopBanner();

  /// Shows the toast for the duration, after which it fades out in a quarter of a second.
  void show(std::string title, std::string body, std::chrono::milliseconds duration);

 private:
  void dismiss();

  MainQueue& queue_;
  BannerScreen& screen_;
  std::optional<MainQueue::TimerId> hideWork_;  // the dismissal of the panel on the screen
  /// Null when no toast is shown; a fading one is. Nobody else holds it.
  std::shared_ptr<BannerPanel> panel_;
};

}  // namespace quibbly
