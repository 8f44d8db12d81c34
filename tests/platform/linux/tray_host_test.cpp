// Trays that come and go, and what the user prefers, on a real bus and a real display.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/manual_queue.h"
#include "fakes/private_bus.h"
#include "fakes/status_notifier_host.h"
#include "fakes/x11_desk.h"
#include "fakes/x_server.h"
#include "platform/linux/any_tray_host.h"
#include "platform/linux/portal_appearance.h"

namespace quibbly::linux_services {
namespace {

using ::testing::ElementsAre;

class TrayHosts : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(daemon_.running()) << "dbus-daemon is needed";
    ASSERT_TRUE(screen_.installed()) << "Xvfb is needed";
  }
  void await(const std::string& display) {
    host_ = std::make_unique<AnyTrayHost>(queue_, bus_, display);
    host_->await([this] { ++found_; });
    EXPECT_EQ(found_, 0) << "answered inside the call";
    // An answer of the bus that comes after all that was asked.
    bool served = false;
    bus_.call(bus_.newCall("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId"),
              [&](sd_bus_message*) { served = true; });
    ASSERT_TRUE(queue_.until([&] { return served; }));
  }
  bool isFound() {
    return queue_.until([this] { return found_ == 1; });
  }

  fakes::PrivateBus daemon_;
  fakes::XServer screen_;
  fakes::ManualQueue queue_;
  SessionBus bus_{queue_, daemon_.address()};
  std::unique_ptr<AnyTrayHost> host_;
  int found_ = 0;
};

TEST_F(TrayHosts, one_of_an_x_display_is_found_when_it_is_there_and_when_it_comes) {
  fakes::X11Desk desk(screen_.display());
  await(screen_.display());
  EXPECT_EQ(found_, 0);
  desk.appear();
  EXPECT_TRUE(isFound());
  found_ = 0;
  await(screen_.display());
  EXPECT_TRUE(isFound());
  desk.appear();
  queue_.run();
  EXPECT_EQ(found_, 1) << "told twice";
}

TEST_F(TrayHosts, one_of_the_bus_is_found_when_it_is_there_and_when_it_comes_after_its_watcher) {
  fakes::StatusNotifierHost host(daemon_.address());
  const auto serve = [&] { host.serve(); };
  await("");
  host.ownName();
  for (int i = 0; i < 100; ++i) {
    queue_.run();
    serve();
  }
  EXPECT_EQ(found_, 0) << "a watcher without a host shows nothing";
  host.registerHost();
  EXPECT_TRUE(queue_.until([&] {
    serve();
    return found_ == 1;
  }));
  found_ = 0;
  host_ = std::make_unique<AnyTrayHost>(queue_, bus_, "");
  host_->await([this] { ++found_; });
  EXPECT_TRUE(queue_.until([&] {
    serve();
    return found_ == 1;
  }));
}

TEST_F(TrayHosts, there_is_none_without_a_display_and_a_bus) {
  daemon_.kill();
  host_ = std::make_unique<AnyTrayHost>(queue_, bus_, ":4711");
  host_->await([this] { ++found_; });
  queue_.run();
  EXPECT_EQ(found_, 0);
}

TEST_F(TrayHosts, the_colour_scheme_is_told_as_the_portal_has_it_and_as_it_changes) {
  fakes::StatusNotifierHost desktop(daemon_.address());
  PortalAppearance appearance(bus_);
  std::vector<std::optional<Appearance>> told;
  const auto awaitAnswers = [&](std::size_t count) {
    return queue_.until([&] {
      desktop.serve();
      return told.size() == count;
    });
  };
  desktop.ownPortal();
  desktop.colourScheme = 1;
  appearance.observe([&](const auto& preferred) { told.push_back(preferred); });
  ASSERT_TRUE(awaitAnswers(1));
  for (const std::uint32_t scheme : {2U, 0U, 7U}) {
    desktop.changeColourScheme(scheme);
    ASSERT_TRUE(awaitAnswers(told.size() + 1)) << scheme;
  }
  EXPECT_THAT(told, ElementsAre(Appearance::dark, Appearance::light, std::nullopt, std::nullopt));
}

TEST_F(TrayHosts, a_desktop_without_a_portal_prefers_nothing) {
  PortalAppearance appearance(bus_);
  std::vector<std::optional<Appearance>> told;
  appearance.observe([&](const auto& preferred) { told.push_back(preferred); });
  ASSERT_TRUE(queue_.until([&] { return !told.empty(); }));
  EXPECT_THAT(told, ElementsAre(std::nullopt));
}

}  // namespace
}  // namespace quibbly::linux_services
