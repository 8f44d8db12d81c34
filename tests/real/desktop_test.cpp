// The built application on a display, with the trays that desktops have.

#include <chrono>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/status_notifier_host.h"
#include "fakes/x11_desk.h"
#include "fakes/x_server.h"
#include "real/application_session.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using fakes::Process;
using ::testing::IsEmpty;

constexpr xcb_keysym_t comma = 0x2c;
constexpr xcb_keysym_t letterD = 0x64;
constexpr xcb_keysym_t letterQ = 0x71;
constexpr xcb_keysym_t escape = 0xff1b;

class Desktop : public fakes::ApplicationSession {
 protected:
  Desktop() {
    ::setenv("DISPLAY", screen_.display().c_str(), 1);
    ::setenv("TSAN_OPTIONS", "report_destroy_locked=0:suppressions=" QUIBBLY_TESTS_DIR "/real/desktop.tsan", 1);
  }
  void SetUp() override { ASSERT_TRUE(screen_.installed()) << "Xvfb is needed"; }

  bool untilShown(const char* title, bool isShown = true) {
    const bool came = until([&] { return desk_.shows(title) == isShown; });
    EXPECT_TRUE(came) << title << "\n" << output();
    return came;
  }
  bool untilDocked() {
    return until([this] { return desk_.serve(); });
  }

  fakes::XServer screen_;
  fakes::X11Desk desk_{screen_.display()};
};

TEST_F(Desktop, is_used_from_its_icon_and_quits_from_its_panel) {
  desk_.appear();
  Process application(start(""));
  ASSERT_TRUE(untilDocked());
  EXPECT_FALSE(desk_.shows("quibbly"));
  for (const auto& [key, title] : {std::pair{letterD, "quibbly Dashboard"}, {comma, "Settings"}}) {
    ASSERT_TRUE(desk_.clickUntilShown("quibbly"));
    desk_.press("quibbly", key, true);
    ASSERT_TRUE(untilShown(title));
    ASSERT_TRUE(untilShown("quibbly", false)) << "a panel that was left";
  }
  ASSERT_TRUE(desk_.clickUntilShown("quibbly"));
  desk_.press("quibbly", escape, false);
  ASSERT_TRUE(untilShown("quibbly", false));
  ASSERT_TRUE(desk_.clickUntilShown("quibbly"));
  desk_.press("quibbly", letterQ, true);
  EXPECT_EQ(application.wait(), 0);
  EXPECT_THAT(output(), IsEmpty());
}

TEST_F(Desktop, shows_a_toast_for_a_url_and_a_dashboard_when_it_is_started_again) {
  desk_.appear();
  Process application(start("quibbly://roast"));
  ASSERT_TRUE(untilDocked());
  ASSERT_TRUE(untilShown("Your Mac would like a word"));
  ASSERT_TRUE(until([this] { return server_.onScreen.size() == 1; }));
  EXPECT_EQ(server_.onScreen[0].body, home_.store.lastRoast()->text);
  EXPECT_EQ(run(""), 0);
  EXPECT_TRUE(untilShown("Dashboard"));
  const auto told = std::chrono::steady_clock::now();
  EXPECT_EQ(application.end(SIGTERM), 0);
  EXPECT_LT(std::chrono::steady_clock::now() - told, 1s);
}

TEST_F(Desktop, is_a_window_while_there_is_no_tray_and_moves_into_the_one_that_comes) {
  Process application(start(""));
  ASSERT_TRUE(untilShown("quibbly"));
  desk_.appear();
  ASSERT_TRUE(untilDocked());
  EXPECT_TRUE(untilShown("quibbly", false));
  EXPECT_EQ(application.end(SIGTERM), 0);
}

TEST_F(Desktop, opens_its_panel_for_a_tray_on_the_bus) {
  fakes::StatusNotifierHost tray(daemon_.address());
  tray.ownName();
  tray.registerHost();
  Process application(start(""));
  ASSERT_TRUE(until([&] {
    tray.serve();
    return !tray.item().empty();
  }));
  tray.activateItem();
  EXPECT_TRUE(untilShown("quibbly"));
  EXPECT_EQ(application.end(SIGTERM), 0);
}

}  // namespace
}  // namespace quibbly
