#include "platform/linux/x11_applications.h"

#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include <xcb/xcb.h>

#include "fakes/file_tree.h"
#include "fakes/x_server.h"
#include "platform/linux/x11_windows.h"
#include "platform/x11/x11_handles.h"

namespace quibbly::linux_services {
namespace {

using testing::UnorderedElementsAre;

/// A real display, of which the test is the window manager and all programs.
class X11 : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(server_.runs()) << "Xvfb is needed, and did not come up";
    display_ = x11::connectTo(server_.display());
    ASSERT_TRUE(display_) << "Xvfb did not start";
  }

  xcb_atom_t atom(const std::string& name) {
    return x11::atomOf(display_.get(), x11::requestAtom(display_.get(), name));
  }

  void set(xcb_window_t window, const char* property, xcb_atom_t type, const std::vector<std::uint32_t>& values) {
    xcb_change_property(display_.get(), XCB_PROP_MODE_REPLACE, window, atom(property), type, 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
  }
  void setOnRoot(const char* property, const std::vector<xcb_window_t>& windows) {
    set(root(), property, XCB_ATOM_WINDOW, windows);
  }

  xcb_window_t open(const std::string& instance, const std::string& className, std::uint32_t process,
                    const char* property = "_TEST_NONE", const char* value = "_TEST_NONE") {
    const xcb_window_t window = xcb_generate_id(display_.get());
    xcb_create_window(display_.get(), 0, window, root(), 0, 0, 8, 8, 0, XCB_WINDOW_CLASS_INPUT_ONLY, 0, 0, nullptr);
    const std::string windowClass = instance + '\0' + className + '\0';
    xcb_change_property(display_.get(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(windowClass.size()), windowClass.data());
    set(window, "_NET_WM_PID", XCB_ATOM_CARDINAL, {process});
    set(window, property, XCB_ATOM_ATOM, {atom(value)});
    return window;
  }
  xcb_window_t openAndClose() {
    const auto window = open("gone", "Gone", 70'000);
    xcb_destroy_window(display_.get(), window);
    return window;
  }

  std::optional<ApplicationsReading> read() {
    // The answer to a request shows that all before it has been done.
    atom("_NET_CLIENT_LIST");
    DesktopEntries entries({files_.root()}, {"de"});
    return X11Applications(server_.display(), entries).running();
  }

  fakes::FileTree files_;
  const fakes::XServer server_;

 private:
  xcb_window_t root() { return x11::rootOf(display_.get(), display_.screen).value(); }

  x11::XDisplay display_;
};

TEST_F(X11, the_managed_windows_tell_what_runs) {
  EXPECT_EQ(read(), std::nullopt) << "without a window manager";
  setOnRoot("_NET_CLIENT_LIST", {});
  EXPECT_EQ(read(), ApplicationsReading());
  setOnRoot("_NET_CLIENT_LIST",
            {open("Navigator", "firefox", 70'001), openAndClose(), open("quibbly", "Quibbly", 70'002),
             open("Dialog", "firefox", 70'001, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DIALOG"),
             open("panel", "Panel", 70'003, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK"),
             open("discord", "Discord", 70'004, "_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR"),
             open("spotify", "Spotify", 70'005, "_NET_WM_WINDOW_TYPE", "_MAKER_WINDOW_TYPE_OWN")});
  const auto reading = read();
  ASSERT_TRUE(reading);
  EXPECT_THAT(reading->running,
              UnorderedElementsAre(RunningApplication{ActivationPolicy::regular, "org.mozilla.firefox"},
                                   RunningApplication{ActivationPolicy::regular, "com.spotify.client"},
                                   RunningApplication{ActivationPolicy::accessory, "com.hnc.Discord"},
                                   RunningApplication{ActivationPolicy::accessory, std::nullopt}));
  EXPECT_EQ(reading->frontmost, std::nullopt);
}

TEST_F(X11, the_active_window_tells_what_is_in_front_even_when_it_is_not_managed) {
  files_.add("applications/org.example.Paint.desktop",
             "[Desktop Entry]\nType=Application\nName=Paint\nName[de]=Malen\n");
  setOnRoot("_NET_CLIENT_LIST", {});
  for (const auto& [active, expected] :
       std::initializer_list<std::pair<xcb_window_t, std::optional<FrontmostApplication>>>{
           {XCB_WINDOW_NONE, std::nullopt},
           {open("paint", "org.example.Paint", 70'001), FrontmostApplication{"Malen", "org.example.Paint"}},
           {open("quibbly", "Quibbly", 70'002), std::nullopt},
           {openAndClose(), std::nullopt}}) {
    setOnRoot("_NET_ACTIVE_WINDOW", {active});
    EXPECT_EQ(read(), (ApplicationsReading{.running = {}, .frontmost = expected}));
  }
}

TEST_F(X11, a_display_that_hangs_is_given_up_on_until_it_answers) {
  setOnRoot("_NET_CLIENT_LIST", {open("calc", "Calc", 70'000)});
  ASSERT_TRUE(read());
  DesktopEntries entries({}, {});
  X11Applications applications(server_.display(), entries, std::chrono::milliseconds(20));
  server_.hang();
  for (int i = 0; i < 3; ++i) EXPECT_EQ(applications.running(), std::nullopt);
  server_.resume();
  std::optional<ApplicationsReading> late;
  for (int i = 0; i < 1000 && !late; ++i) late = applications.running();
  ASSERT_TRUE(late);
  EXPECT_EQ(late->running.size(), 1U);
}

TEST(X11Applications, a_display_that_is_missing_or_elsewhere_is_not_asked) {
  for (const auto* name : {":0", ":1.0", "unix:0", "/tmp/.X11-unix/X0"}) EXPECT_TRUE(isLocalDisplay(name)) << name;
  for (const auto* name : {"", "localhost:10.0", "example.org:0", "nonsense"})
    EXPECT_FALSE(isLocalDisplay(name)) << name;
  DesktopEntries entries({}, {});
  EXPECT_EQ(X11Applications(":59999", entries).running(), std::nullopt);
}

}  // namespace
}  // namespace quibbly::linux_services
