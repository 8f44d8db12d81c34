#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace quibbly {

/// What a toast says.
struct BannerView {
  /// At most one line of it is shown.
  std::string title;
  /// At most four lines of it are shown.
  std::string message;

  bool operator==(const BannerView&) const = default;
};

/// A place on the screen in device-independent pixels, from the upper left corner of the desktop.
struct BannerFrame {
  /// The size of every toast.
  static constexpr int toastWidth = 400;
  static constexpr int toastHeight = 110;

  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  bool operator==(const BannerFrame&) const = default;
};

/// A floating panel that takes no keyboard focus, shows on every workspace and above full-screen windows. Gone, it is off
/// the screen. Main thread.
class BannerPanel {
 public:
  virtual ~BannerPanel() = default;
  virtual void setFrame(const BannerFrame& frame) = 0;
  /// Shows it above everything, whether or not this program is in front.
  virtual void orderFront() = 0;
  /// Takes it off the screen at once.
  virtual void orderOut() = 0;
  /// Lets it grow transparent, then calls back, on a later turn of the main queue.
  virtual void fadeOut(std::chrono::milliseconds duration, std::function<void()> completed) = 0;
};

/// Where toasts are shown; the user interface provides it. Main thread.
class BannerScreen {
 public:
  virtual ~BannerScreen() = default;
  /// The part of the main screen that panels of the desktop leave free; absent without a screen.
  [[nodiscard]] virtual std::optional<BannerFrame> visibleFrame() const = 0;
  /// A panel that is not on the screen yet.
  [[nodiscard]] virtual std::unique_ptr<BannerPanel> makePanel(const BannerView& view) = 0;
};

}  // namespace quibbly
