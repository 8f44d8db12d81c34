#include "ui/qt/toast_screen.h"

#include <utility>

#include <QGuiApplication>
#include <QPropertyAnimation>

#include "ui/qt/toast_view.h"
#include "ui/qt/window_hints.h"
#include "ui/qt/window_place.h"

namespace quibbly {
namespace {

class ToastPanel final : public BannerPanel {
 public:
  explicit ToastPanel(const BannerView& view) : view_(view, window_hints::surface()) {}

  void setFrame(const BannerFrame& frame) override { view_.place(frame); }
  void orderFront() override { view_.show(); }
  void orderOut() override { view_.hide(); }
  void fadeOut(std::chrono::milliseconds duration, std::function<void()> completed) override {
    auto* const fade = new QPropertyAnimation(&view_, "windowOpacity", &view_);
    fade->setDuration(static_cast<int>(duration.count()));
    fade->setEndValue(0.0);
    QObject::connect(fade, &QAbstractAnimation::finished, &view_, std::move(completed), Qt::QueuedConnection);
    fade->start();
  }

 private:
  ToastView view_;
};

}  // namespace

std::optional<BannerFrame> ToastScreen::visibleFrame() const {
  if (QGuiApplication::screens().isEmpty()) return std::nullopt;
  const QRect free = window_place::freeArea();
  return BannerFrame{.x = free.x(), .y = free.y(), .width = free.width(), .height = free.height()};
}

std::unique_ptr<BannerPanel> ToastScreen::makePanel(const BannerView& view) {
  return std::make_unique<ToastPanel>(view);
}

}  // namespace quibbly
