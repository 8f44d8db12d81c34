#include "ui/terminal_banner_screen.h"

namespace quibbly {

class TerminalBannerScreen::Panel final : public BannerPanel {
 public:
  Panel(TerminalBannerScreen& screen, const BannerView& view)
      : screen_(screen), toast_(std::make_shared<Toast>(Toast{.view = view})) {}
  Panel(const Panel&) = delete;
  Panel& operator=(const Panel&) = delete;
  ~Panel() override { screen_.remove(toast_); }

  void setFrame(const BannerFrame& /*frame*/) override {}
  void orderFront() override { screen_.show(toast_); }
  void orderOut() override { screen_.remove(toast_); }
  void fadeOut(std::chrono::milliseconds duration, std::function<void()> completed) override {
    toast_->isFading = true;
    screen_.changed();
    screen_.queue_.runAt(screen_.queue_.now() + duration, std::move(completed));
  }

 private:
  TerminalBannerScreen& screen_;
  std::shared_ptr<Toast> toast_;
};

std::unique_ptr<BannerPanel> TerminalBannerScreen::makePanel(const BannerView& view) {
  return std::make_unique<Panel>(*this, view);
}

void TerminalBannerScreen::show(std::shared_ptr<Toast> toast) {
  shown_.push_back(std::move(toast));
  changed();
}

void TerminalBannerScreen::remove(const std::shared_ptr<Toast>& toast) {
  if (std::erase(shown_, toast) > 0) changed();
}

}  // namespace quibbly
