// The built application on a display, with the trays that desktops have.

#include <algorithm>
#include <optional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/bus_desktop.h"
#include "fakes/x11_desk.h"
#include "fakes/x_server.h"
#include "real/application_session.h"

namespace quibbly {
namespace {

using fakes::Process;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr xcb_keysym_t comma = 0x2c;
constexpr xcb_keysym_t letterD = 0x64;
constexpr xcb_keysym_t letterQ = 0x71;
constexpr xcb_keysym_t escape = 0xff1b;

class Desktop : public fakes::ApplicationSession {
 protected:
  Desktop() {
    ::setenv("DISPLAY", screen_.display().c_str(), 1);
    // What the tester's own session would have windows be.
    for (const char* name : {"QT_QPA_PLATFORM", "QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE", "QT_SCALE_FACTOR"}) {
      ::unsetenv(name);
    }
    ::setenv("TSAN_OPTIONS", "report_destroy_locked=0:suppressions=" QUIBBLY_TESTS_DIR "/real/desktop.tsan", 1);
  }
  void SetUp() override {
    ASSERT_TRUE(screen_.runs()) << "Xvfb is needed, and did not come up";
    desk_.emplace(screen_.display());
    manager_.emplace(start("", ">/dev/null 2>&1", "openbox"));
    ASSERT_TRUE(until([this] { return desk_->isManaged(); })) << "openbox is needed";
  }

  bool untilShown(const char* title, bool isShown = true) {
    const bool came = until([&] { return desk_->shows(title) == isShown; });
    EXPECT_TRUE(came) << title << "\n" << output();
    return came;
  }
  bool untilDocked() {
    return until([this] { return desk_->serve(); });
  }

  fakes::XServer screen_;
  std::optional<fakes::X11Desk> desk_;
  std::optional<Process> manager_;
};

TEST_F(Desktop, is_used_from_its_icon_and_quits_from_its_panel) {
  desk_->appear();
  Process application(start(""));
  ASSERT_TRUE(untilDocked());
  EXPECT_FALSE(desk_->shows("quibbly"));
  for (const auto& [key, title] : {std::pair{letterD, "quibbly Dashboard"}, {comma, "Settings"}}) {
    ASSERT_TRUE(desk_->openByKey("quibbly", key, title));
    ASSERT_TRUE(untilShown("quibbly", false)) << "a panel that was left";
  }
  ASSERT_TRUE(desk_->clickUntilShown("quibbly"));
  desk_->press("quibbly", escape, false);
  ASSERT_TRUE(untilShown("quibbly", false));
  ASSERT_TRUE(desk_->clickUntilShown("quibbly"));
  desk_->press("quibbly", letterQ, true);
  EXPECT_EQ(application.wait(), 0);
  EXPECT_THAT(output(), IsEmpty());
}

TEST_F(Desktop, shows_a_toast_for_a_url_and_a_dashboard_when_it_is_started_again) {
  desk_->appear();
  ASSERT_TRUE(desk_->openFilm());
  Process application(start("quibbly://roast"));
  ASSERT_TRUE(untilDocked());
  ASSERT_TRUE(untilShown("Your Mac would like a word"));
  EXPECT_TRUE(desk_->isOnTop("Your Mac would like a word"));
  ASSERT_TRUE(until([this] { return server_.onScreen.size() == 1; }));
  EXPECT_EQ(server_.onScreen[0].body, home_.store.lastRoast()->text);
  EXPECT_EQ(run(""), 0);
  EXPECT_TRUE(untilShown("Dashboard"));
  EXPECT_EQ(application.end(SIGTERM), 0);
}

TEST_F(Desktop, is_a_window_while_there_is_no_tray) {
  ASSERT_EQ(run("prefs hideFromDock 1", ">/dev/null"), 0);
  Process application(start(""));
  ASSERT_TRUE(untilShown("quibbly"));
  EXPECT_FALSE(desk_->hasState("quibbly", "_NET_WM_STATE_SKIP_TASKBAR")) << "there would be no way back to it";
  for (const char* tray : {"one that comes", "one that comes back"}) {
    desk_->appear();
    ASSERT_TRUE(untilDocked()) << tray;
    EXPECT_TRUE(untilShown("quibbly", false)) << tray;
    desk_->vanish();
    EXPECT_TRUE(untilShown("quibbly")) << tray;
  }
  EXPECT_EQ(application.end(SIGTERM), 0);
}

TEST_F(Desktop, follows_the_dock_rule_except_while_the_dashboard_is_open) {
  constexpr const char* unlisted = "_NET_WM_STATE_SKIP_TASKBAR";
  ASSERT_EQ(run("prefs hideFromDock 1", ">/dev/null"), 0);
  desk_->appear();
  Process application(start(""));
  ASSERT_TRUE(untilDocked());
  ASSERT_TRUE(desk_->openByKey("quibbly", comma, "Settings"));
  EXPECT_TRUE(until([&] { return desk_->hasState("Settings", unlisted); }));
  ASSERT_TRUE(desk_->openByKey("quibbly", letterD, "quibbly Dashboard"));
  EXPECT_TRUE(until([&] { return !desk_->hasState("Settings", unlisted); }));
  // Opening the panel asks what the preference says.
  ASSERT_TRUE(desk_->clickUntilShown("quibbly"));
  desk_->press("quibbly", escape, false);
  ASSERT_TRUE(untilShown("quibbly", false));
  for (const char* window : {"quibbly Dashboard", "Settings"})
    EXPECT_FALSE(desk_->hasState(window, unlisted)) << window;
  desk_->close("quibbly Dashboard");
  EXPECT_TRUE(until([&] { return desk_->hasState("Settings", unlisted); }));
  EXPECT_EQ(application.end(SIGTERM), 0);
}

TEST_F(Desktop, opens_its_panel_for_a_tray_on_the_bus) {
  // A wish that this desktop has not.
  ::setenv("QT_QPA_PLATFORM", "wayland", 1);
  fakes::BusDesktop tray(daemon_.address());
  tray.ownTray();
  tray.registerHost();
  Process application(start(""));
  const auto isDocked = [&] {
    tray.serve();
    return !tray.item().empty();
  };
  ASSERT_TRUE(until(isDocked));
  tray.activateItem();
  EXPECT_TRUE(untilShown("quibbly"));
  tray.giveUpTray();
  EXPECT_TRUE(untilShown("quibbly", false));
  tray.ownTray();
  ASSERT_TRUE(until(isDocked));
  tray.activateItem();
  EXPECT_TRUE(untilShown("quibbly"));
  EXPECT_EQ(application.end(SIGTERM), 0);
}

TEST_F(Desktop, ends_with_its_display_and_says_so) {
  desk_->appear();
  Process application(start(""));
  ASSERT_TRUE(untilDocked());
  screen_.kill();
  EXPECT_EQ(application.wait(), 1);
  EXPECT_THAT(output(), StartsWith("quibbly: The X11 connection broke"));
  EXPECT_EQ(std::ranges::count(output(), '\n'), 1) << output();
}

}  // namespace
}  // namespace quibbly
