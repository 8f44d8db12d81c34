#include "platform/linux/application_scopes.h"

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "fakes/file_tree.h"

namespace quibbly::linux_services {
namespace {

using testing::UnorderedElementsAre;

class Scopes : public testing::Test {
 protected:
  void install(const std::string& id, const std::string& more = "") {
    files_.add("share/applications/" + id + ".desktop", "[Desktop Entry]\nType=Application\nName=N\n" + more);
  }
  void startUnit(const std::string& mount, const std::string& unit) {
    files_.add(mount + "/user.slice/user-1000.slice/user@1000.service/app.slice/" + unit + "/cgroup.procs", "1\n");
  }
  static RunningApplication regular(const std::string& identifier) { return {ActivationPolicy::regular, identifier}; }

  fakes::FileTree files_;
  DesktopEntries entries_{{files_.root() / "share"}, {}};
  ApplicationScopes scopes_{files_.root(), 1000, entries_};
};

TEST_F(Scopes, every_unit_of_a_visible_application_counts) {
  install("firefox-esr");
  install("org.gnome.Maps");
  install("org.gnome.Shell.Extensions", "NoDisplay=true\n");
  install("org.quibbly.Quibbly");
  for (const char* unit :
       {"app-gnome-firefox\\x2desr-10.scope", "app-gnome-firefox\\x2desr-11.scope", "app-org.quibbly.Quibbly-3.scope",
        "app-org.gnome.Shell.Extensions-4.scope", "app-gnome-missing-5.scope", "dbus.service",
        "app-graphical.slice/app-graphical-inner.slice/app-org.gnome.Maps@6.service"}) {
    startUnit("sys/fs/cgroup", unit);
  }
  const auto reading = scopes_.running();
  ASSERT_TRUE(reading);
  EXPECT_THAT(reading->running, UnorderedElementsAre(regular("org.mozilla.firefox"), regular("org.mozilla.firefox"),
                                                     regular("org.gnome.Maps")));
  EXPECT_EQ(reading->frontmost, std::nullopt);
}

TEST_F(Scopes, the_trees_of_older_control_groups_are_found_and_nobody_else_is_asked_for) {
  install("org.gnome.Maps");
  files_.add("sys/fs/cgroup/user.slice/user-1001.slice/user@1001.service/app.slice/cgroup.procs", "");
  EXPECT_EQ(scopes_.running(), std::nullopt);
  startUnit("sys/fs/cgroup/systemd", "app-org.gnome.Maps-1.scope");
  EXPECT_THAT(scopes_.running()->running, UnorderedElementsAre(regular("org.gnome.Maps")));
  startUnit("sys/fs/cgroup/unified", "session.scope");
  EXPECT_EQ(scopes_.running(), std::nullopt) << "a desktop that gives its programs no units";
}

}  // namespace
}  // namespace quibbly::linux_services
