#include "platform/linux/desktop_entries.h"

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "fakes/file_tree.h"

namespace quibbly::linux_services {
namespace {

using testing::ElementsAre;

std::string entry(const std::string& name, const std::string& more = "") {
  return "[Desktop Entry]\nType=Application\nName=" + name + "\n" + more;
}

std::string nameOf(const DesktopEntry* entry) { return entry != nullptr ? entry->name : "none"; }

class Entries : public testing::Test {
 protected:
  const DesktopIndex& current() { return entries_.current(); }

  /// As if at another time: two changes within one tick of the file system's clock look like one.
  void touch(const std::string& directory) {
    const auto path = files_.root() / directory;
    std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) + std::chrono::hours(1));
  }

  fakes::FileTree files_;
  DesktopEntries entries_{{files_.root() / "home", files_.root() / "system"}, {}};
};

TEST_F(Entries, the_first_directory_that_has_an_id_decides) {
  files_.add("home/applications/editor.desktop", entry("My Editor"));
  files_.add("home/applications/mail.desktop", "[Desktop Entry]\nHidden=true\n");
  files_.add("home/applications/player.desktop", "not an entry");
  files_.fifo("home/applications/viewer.desktop");
  for (const char* id : {"editor", "mail", "player", "viewer"}) {
    files_.add(std::string("system/applications/") + id + ".desktop", entry(id, "StartupWMClass=" + std::string(id)));
  }
  EXPECT_EQ(nameOf(current().byId("editor")), "My Editor");
  EXPECT_EQ(nameOf(current().byId("mail")), "none");
  EXPECT_EQ(nameOf(current().byStartupWmClass("mail")), "none");
  EXPECT_EQ(nameOf(current().byId("player")), "player");
  EXPECT_EQ(nameOf(current().byId("viewer")), "viewer");
}

TEST_F(Entries, an_id_is_the_path_and_is_found_by_a_class_that_resembles_it) {
  files_.add("system/applications/kde/office/Writer.desktop", entry("Writer"));
  files_.add("system/applications/some-editor.desktop", entry("Editor"));
  files_.link("system/applications/loop", ".");
  EXPECT_EQ(nameOf(current().byId("kde-office-Writer")), "Writer");
  EXPECT_EQ(nameOf(current().byId("Some Editor")), "Editor");
  EXPECT_EQ(nameOf(current().byId("loop-some-editor")), "none");
  EXPECT_EQ(nameOf(current().byId("")), "none");
  EXPECT_EQ(nameOf(current().byStartupWmClass("")), "none");
}

TEST_F(Entries, of_several_entries_for_a_class_its_namesake_is_meant_and_else_a_visible_one) {
  files_.add("system/applications/a-hidden.desktop", entry("Hidden", "NoDisplay=true\nStartupWMClass=Pad\n"));
  files_.add("system/applications/b-visible.desktop", entry("Visible", "StartupWMClass=Pad\n"));
  EXPECT_EQ(nameOf(current().byStartupWmClass("Pad")), "Visible");
  files_.add("system/applications/pad.desktop", entry("Namesake", "StartupWMClass=Pad\n"));
  touch("system/applications");
  EXPECT_EQ(nameOf(current().byStartupWmClass("Pad")), "Namesake");
  EXPECT_EQ(nameOf(current().byStartupWmClass("pad")), "none");
}

TEST_F(Entries, what_is_installed_or_removed_later_is_noticed_in_any_directory) {
  EXPECT_EQ(nameOf(current().byId("late")), "none");
  files_.add("home/applications/sub/late.desktop", entry("Late"));
  EXPECT_EQ(nameOf(current().byId("sub-late")), "Late");
  files_.add("home/applications/sub/later.desktop", entry("Later"));
  touch("home/applications/sub");
  EXPECT_EQ(nameOf(current().byId("sub-later")), "Later");
  std::filesystem::remove_all(files_.root() / "home/applications");
  EXPECT_EQ(nameOf(current().byId("sub-later")), "none");
}

TEST(DataDirectories, come_from_the_environment_each_once_and_whole) {
  EXPECT_THAT(dataDirectories({.home = "/home/ann"}),
              ElementsAre("/home/ann/.local/share", "/usr/local/share", "/usr/share",
                          "/home/ann/.local/share/flatpak/exports/share", "/var/lib/flatpak/exports/share",
                          "/var/lib/snapd/desktop"));
  EXPECT_THAT(dataDirectories({.dataHome = "/data/",
                               .home = "/home/ann",
                               .dataDirs = "/var/lib/flatpak/exports/share/:/opt/share::relative:/opt//share/"}),
              ElementsAre("/data", "/var/lib/flatpak/exports/share", "/opt/share", "/data/flatpak/exports/share",
                          "/var/lib/snapd/desktop"));
  EXPECT_THAT(dataDirectories({.dataHome = "relative", .dataDirs = "/opt"}),
              ElementsAre("/opt", "/var/lib/flatpak/exports/share", "/var/lib/snapd/desktop"));
}

}  // namespace
}  // namespace quibbly::linux_services
