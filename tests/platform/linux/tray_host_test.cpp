// Trays that come and go, and what the user prefers, on a real bus and a real display.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/bus_desktop.h"
#include "fakes/manual_queue.h"
#include "fakes/private_bus.h"
#include "fakes/x11_desk.h"
#include "fakes/x_server.h"
#include "platform/linux/any_tray_host.h"
#include "platform/linux/portal_appearance.h"

namespace quibbly::linux_services {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TrayHosts : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(screen_.runs()) << "Xvfb is needed, and did not come up"; }
  void observe(const std::string& display) {
    told_.clear();
    host_ = std::make_unique<AnyTrayHost>(queue_, bus_, x11::connectTo(display));
    host_->observe([this](bool isThere) { told_.push_back(isThere); });
    EXPECT_THAT(told_, IsEmpty()) << "answered inside the call";
    awaitAnswers();
  }
  /// By one of the bus that comes after all that was asked.
  void awaitAnswers() {
    bool served = false;
    bus_.call(bus_.newCall("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId"),
              [&](sd_bus_message*) { served = true; });
    ASSERT_TRUE(queue_.until([&] { return served; }));
  }
  bool until(const std::function<bool()>& holds) {
    return queue_.until([&] {
      desktop_.serve();
      return holds();
    });
  }
  template <typename... Expected>
  bool untilTold(Expected... expected) {
    return until([&] { return told_ == std::vector<bool>{expected...}; });
  }

  fakes::PrivateBus daemon_;
  fakes::XServer screen_;
  fakes::ManualQueue queue_;
  SessionBus bus_{queue_, daemon_.address()};
  std::unique_ptr<AnyTrayHost> host_;
  fakes::BusDesktop desktop_{daemon_.address()};
  std::vector<bool> told_;
};

TEST_F(TrayHosts, one_of_an_x_display_is_told_as_it_comes_and_goes) {
  fakes::X11Desk desk(screen_.display());
  observe(screen_.display());
  EXPECT_THAT(told_, IsEmpty());
  desk.appear();
  EXPECT_TRUE(untilTold(true));
  desk.vanish();
  EXPECT_TRUE(untilTold(true, false));
  desk.appear();
  EXPECT_TRUE(untilTold(true, false, true));
  observe(screen_.display());
  EXPECT_TRUE(untilTold(true)) << "there was one before";
}

TEST_F(TrayHosts, one_of_the_bus_is_told_as_it_comes_to_its_watcher_and_goes) {
  observe("");
  desktop_.ownTray();
  ASSERT_TRUE(until([&] { return desktop_.wasAsked(); }));
  awaitAnswers();
  EXPECT_THAT(told_, IsEmpty()) << "a watcher without a host shows nothing";
  desktop_.registerHost();
  EXPECT_TRUE(untilTold(true));
  desktop_.registerHost(false);
  EXPECT_TRUE(untilTold(true, false));
  desktop_.registerHost();
  EXPECT_TRUE(untilTold(true, false, true));
  desktop_.giveUpTray();
  EXPECT_TRUE(untilTold(true, false, true, false)) << "its watcher went";
}

TEST_F(TrayHosts, of_the_other_kind_count_no_more_once_there_is_one) {
  fakes::X11Desk desk(screen_.display());
  desk.appear();
  desktop_.ownTray();
  desktop_.registerHost();
  observe(screen_.display());
  EXPECT_TRUE(untilTold(true));
  // Both are there: the icon is on the bus.
  ASSERT_TRUE(until([&] { return desktop_.wasAsked(); }));
  awaitAnswers();
  desktop_.giveUpTray();
  EXPECT_TRUE(untilTold(true, false)) << "one of a display cannot have it";
  desk.vanish();
  observe(screen_.display());
  desk.appear();
  EXPECT_TRUE(untilTold(true));
  desktop_.ownTray();
  desktop_.registerHost();
  awaitAnswers();
  desk.vanish();
  EXPECT_TRUE(untilTold(true, false)) << "one of the bus cannot have it";
}

TEST_F(TrayHosts, there_is_none_without_a_display_and_a_bus) {
  daemon_.kill();
  observe(":4711");
  EXPECT_THAT(told_, IsEmpty());
}

TEST_F(TrayHosts, the_colour_scheme_is_told_when_a_portal_is_there_or_comes_and_as_it_changes) {
  PortalAppearance appearance(bus_);
  std::vector<std::optional<Appearance>> told;
  desktop_.colourScheme = 1;
  appearance.observe([&](const auto& preferred) { told.push_back(preferred); });
  awaitAnswers();
  EXPECT_THAT(told, IsEmpty());
  desktop_.ownPortal();
  ASSERT_TRUE(until([&] { return told.size() == 1; })) << "it has come late";
  PortalAppearance later(bus_);
  std::optional<Appearance> found;
  later.observe([&](const auto& preferred) { found = preferred; });
  EXPECT_TRUE(until([&] { return found == Appearance::dark; })) << "it was there before";
  for (const std::uint32_t scheme : {2U, 0U, 7U}) {
    desktop_.changeColourScheme(scheme);
    ASSERT_TRUE(until([&, before = told.size()] { return told.size() > before; })) << scheme;
  }
  EXPECT_THAT(told, ElementsAre(Appearance::dark, Appearance::light, std::nullopt, std::nullopt));
}

}  // namespace
}  // namespace quibbly::linux_services
