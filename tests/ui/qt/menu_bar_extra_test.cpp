#include "ui/qt/menu_bar_extra.h"

#include <chrono>

#include <QApplication>
#include <gtest/gtest.h>

#include "fakes/manual_queue.h"
#include "fakes/offscreen.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

struct FakeTrayHost final : TrayHost {
  std::function<void(bool isThere)> tell;
  void observe(std::function<void(bool isThere)> changed) override { tell = std::move(changed); }
};

/// The panel of an icon, and trays that come and go.
class Extra : public fakes::Offscreen {
 protected:
  void TearDown() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  enum class Seen { nothing, panel, window };
  static Seen seen() {
    for (const QWidget* const window : QApplication::topLevelWidgets()) {
      if (dynamic_cast<const MenuBarView*>(window) == nullptr || !window->isVisible()) continue;
      return window->windowType() == Qt::Tool ? Seen::panel : Seen::window;
    }
    return Seen::nothing;
  }

  fakes::ManualQueue queue_;
  FakeTrayHost tray_;
  WindowedApplication application_{queue_};
  MenuBarExtra extra_{{.queue = queue_,
                       .trayHost = tray_,
                       .application = application_,
                       .state = [] { return PanelState(); },
                       .panelShown = [] {}},
                      {}};
};

TEST_F(Extra, stands_as_a_window_after_two_seconds_without_a_tray_and_goes_into_the_first_that_comes) {
  extra_.start();
  queue_.advance(1999ms);
  EXPECT_EQ(seen(), Seen::nothing);
  queue_.advance(1ms);
  EXPECT_EQ(seen(), Seen::window);
  tray_.tell(true);
  EXPECT_EQ(seen(), Seen::nothing);
  EXPECT_TRUE(extra_.hasIcon());
  extra_.openPanel();
  EXPECT_EQ(seen(), Seen::panel);
  tray_.tell(false);
  EXPECT_EQ(seen(), Seen::nothing) << "an icon's panel has nothing to hang on";
  EXPECT_FALSE(extra_.hasIcon());
}

TEST_F(Extra, waits_two_seconds_from_when_its_tray_went_last) {
  extra_.start();
  queue_.advance(1s);
  tray_.tell(true);
  queue_.advance(10s);
  EXPECT_EQ(seen(), Seen::nothing);
  for (int restarts = 0; restarts < 2; ++restarts) {
    tray_.tell(false);
    queue_.advance(1900ms);
    tray_.tell(true);
  }
  tray_.tell(false);
  queue_.advance(1999ms);
  EXPECT_EQ(seen(), Seen::nothing);
  queue_.advance(1ms);
  EXPECT_EQ(seen(), Seen::window);
}

}  // namespace
}  // namespace quibbly
