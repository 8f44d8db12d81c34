#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "notify/banner_screen.h"
#include "platform/application.h"
#include "platform/main_queue.h"
#include "platform/pasteboard.h"
#include "platform/workspace.h"

namespace quibbly::fakes {

/// The desktop around the program: notes what the program does to it.
struct FakeDesktop final : Application, Pasteboard, Workspace {
  ActivationPolicy policy = ActivationPolicy::regular;
  int holds = 0;
  bool active = false;
  std::vector<std::string> calls;
  std::string pasted;
  /// The URL that a program is there for.
  std::string openable;

  void setActivationPolicy(ActivationPolicy to) override {
    if (std::exchange(policy, to) == to) return;
    calls.emplace_back(to == ActivationPolicy::regular ? "regular" : "accessory");
  }
  [[nodiscard]] ActivationPolicy activationPolicy() const { return holds > 0 ? ActivationPolicy::regular : policy; }
  [[nodiscard]] std::shared_ptr<void> holdRegular() override {
    ++holds;
    return {this, [this](void*) { --holds; }};
  }
  void activate(bool ignoringOtherApps) override {
    calls.emplace_back(ignoringOtherApps ? "activate over others" : "activate");
  }
  [[nodiscard]] bool isActive() const override { return active; }
  void hide() override { calls.emplace_back("hide"); }
  void unhide() override { calls.emplace_back("unhide"); }
  void terminate() override { calls.emplace_back("terminate"); }

  void clear() override { pasted.clear(); }
  void setText(std::string_view text) override { pasted += text; }

  [[nodiscard]] bool openURL(std::string_view url) override {
    calls.emplace_back(url);
    return url == openable;
  }
};

/// A screen that notes which toasts are on it.
class FakeBannerScreen : public BannerScreen {
 public:
  explicit FakeBannerScreen(MainQueue& queue) : queue_(queue) {}

  struct Toast {
    BannerView view;
    std::optional<BannerFrame> frame;
    bool fading = false;
  };
  std::optional<BannerFrame> frame = BannerFrame{.x = 100, .y = 30, .width = 1000, .height = 700};
  std::vector<std::shared_ptr<Toast>> shown;

  [[nodiscard]] std::vector<std::string> messages() const {
    std::vector<std::string> all;
    for (const auto& toast : shown) all.push_back(toast->view.message + (toast->fading ? " (fading)" : ""));
    return all;
  }

  [[nodiscard]] std::optional<BannerFrame> visibleFrame() const override { return frame; }
  [[nodiscard]] std::unique_ptr<BannerPanel> makePanel(const BannerView& view) override {
    return std::make_unique<Panel>(*this, view);
  }

 private:
  class Panel : public BannerPanel {
   public:
    Panel(FakeBannerScreen& screen, const BannerView& view)
        : screen_(screen), toast_(std::make_shared<Toast>(Toast{.view = view, .frame = std::nullopt})) {}
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;
    ~Panel() override { std::erase(screen_.shown, toast_); }

    void setFrame(const BannerFrame& place) override { toast_->frame = place; }
    void orderFront() override { screen_.shown.push_back(toast_); }
    void orderOut() override { std::erase(screen_.shown, toast_); }
    void fadeOut(std::chrono::milliseconds duration, std::function<void()> completed) override {
      toast_->fading = true;
      screen_.queue_.runAt(screen_.queue_.now() + duration, std::move(completed));
    }

   private:
    FakeBannerScreen& screen_;
    std::shared_ptr<Toast> toast_;
  };

  MainQueue& queue_;
};

}  // namespace quibbly::fakes
