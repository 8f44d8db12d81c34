#include "commands/autostart_command.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/command_line.h"
#include "fakes/failing_file_system.h"
#include "fakes/file_tree.h"
#include "platform/linux/posix_file_system.h"

namespace quibbly {
namespace {

using ::testing::HasSubstr;

class Autostart : public ::testing::Test {
 protected:
  /// The command as typed after `quibbly autostart`.
  std::string autostart(std::vector<const char*> words) {
    words.insert(words.begin(), "autostart");
    const auto request = parseCommandLine(words);
    if (!request) return request.error();
    const auto printed = AutostartCommand(files_, tree_.root(), program_).run(request->startsAtLogin);
    return printed ? *printed : printed.error().line;
  }

  fakes::FileTree tree_;
  linux_services::PosixFileSystem disk_;
  fakes::FailingFileSystem files_{disk_};
  std::string program_ = "/usr/bin/quibbly";
  std::filesystem::path entry_ = tree_.root() / "autostart/org.quibbly.Quibbly.desktop";
};

TEST_F(Autostart, is_off_until_it_is_switched_on_and_can_be_switched_as_often_as_one_likes) {
  for (int times = 0; times < 2; ++times) {
    EXPECT_EQ(autostart({}), "off\n");
    EXPECT_EQ(autostart({"off"}), "");
    EXPECT_EQ(autostart({"on"}), "");
    EXPECT_EQ(autostart({"on"}), "");
    EXPECT_EQ(autostart({}), "on\n");
    EXPECT_EQ(autostart({"off"}), "");
  }
  EXPECT_THAT(autostart({"maybe"}), HasSubstr("maybe"));
}

TEST_F(Autostart, knows_how_desktops_switch_it) {
  for (const char* off : {"Hidden=true", "X-GNOME-Autostart-enabled=false"}) {
    tree_.add("autostart/org.quibbly.Quibbly.desktop", std::string("[Desktop Entry]\nExec=quibbly\n") + off + "\n");
    EXPECT_EQ(autostart({}), "off\n") << off;
    EXPECT_EQ(autostart({"on"}), "");
    EXPECT_EQ(autostart({}), "on\n") << off;
  }
}

TEST_F(Autostart, names_the_program_as_desktops_read_it) {
  EXPECT_EQ(execKey("/usr/bin/quibbly"), R"("/usr/bin/quibbly")");
  EXPECT_EQ(execKey("/home/me/my programs/100%/quibbly"), R"("/home/me/my programs/100%%/quibbly")");
  EXPECT_EQ(execKey(R"(/a$b`c"d\e)"), R"("/a\\$b\\`c\\"d\\\\e")");
  program_ = "/a\nExec=b";
  EXPECT_THAT(autostart({"on"}), HasSubstr("control characters"));
  EXPECT_EQ(autostart({}), "off\n");
}

TEST_F(Autostart, that_cannot_be_changed_stays_as_it_was) {
  ASSERT_EQ(autostart({"on"}), "");
  program_ = "/opt/quibbly";
  for (const int call : {1, 3, 4}) {  // all but the removal of what may be left of an earlier try
    files_.failCall(call);
    EXPECT_THAT(autostart({"on"}), HasSubstr("autostart")) << call;
    files_.failCall(0);
    EXPECT_THAT(*disk_.read(entry_), HasSubstr("\"/usr/bin/quibbly\"")) << call;
    EXPECT_FALSE(std::filesystem::exists(entry_.string() + ".new")) << call;
  }
  files_.failCall(1);
  EXPECT_THAT(autostart({"off"}), HasSubstr("cannot remove"));
  files_.failCall(0);
  EXPECT_EQ(autostart({}), "on\n");
}

}  // namespace
}  // namespace quibbly
