#pragma once

#include "platform/application.h"
#include "platform/main_queue.h"

namespace quibbly::qt_services {

/// A program without windows: in no dock, never in front, with nothing to hide.
class HeadlessApplication final : public Application {
 public:
  explicit HeadlessApplication(MainQueue& queue) : queue_(queue) {}

  void setActivationPolicy(ActivationPolicy /*policy*/) override {}
  [[nodiscard]] std::shared_ptr<void> holdRegular() override { return nullptr; }
  void activate(bool /*ignoringOtherApps*/) override {}
  [[nodiscard]] bool isActive() const override { return false; }
  void hide() override {}
  void unhide() override {}
  void terminate() override;

 private:
  MainQueue& queue_;
};

}  // namespace quibbly::qt_services
