#pragma once

#include "notify/banner_screen.h"

namespace quibbly {

/// Toasts on the screen that the user is at. Main thread.
class ToastScreen final : public BannerScreen {
 public:
  [[nodiscard]] std::optional<BannerFrame> visibleFrame() const override;
  [[nodiscard]] std::unique_ptr<BannerPanel> makePanel(const BannerView& view) override;
};

}  // namespace quibbly
