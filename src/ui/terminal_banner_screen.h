#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "notify/banner_screen.h"
#include "platform/main_queue.h"

namespace quibbly {

/// Toasts for a terminal, on which they are text above the panel. Main thread; must outlive its panels.
class TerminalBannerScreen final : public BannerScreen {
 public:
  struct Toast {
    BannerView view;
    bool isFading = false;
  };

  explicit TerminalBannerScreen(MainQueue& queue) : queue_(queue) {}

  /// Called whenever the answer of `current` is another.
  void onChange(std::function<void()> changed) { changed_ = std::move(changed); }
  /// The toast that was ordered front last; null when none is shown.
  [[nodiscard]] const Toast* current() const { return shown_.empty() ? nullptr : shown_.back().get(); }

  [[nodiscard]] std::optional<BannerFrame> visibleFrame() const override { return std::nullopt; }
  [[nodiscard]] std::unique_ptr<BannerPanel> makePanel(const BannerView& view) override;

 private:
  class Panel;

  void show(std::shared_ptr<Toast> toast);
  void remove(const std::shared_ptr<Toast>& toast);
  void changed() const {
    if (changed_) changed_();
  }

  MainQueue& queue_;
  std::function<void()> changed_;
  std::vector<std::shared_ptr<Toast>> shown_;
};

}  // namespace quibbly
