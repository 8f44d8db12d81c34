#include "platform/linux/desktop_workspace.h"

#include <array>
#include <csignal>
#include <utility>

#include <gtest/gtest.h>

#include "fakes/file_tree.h"
#include "fakes/until.h"
#include "platform/linux/small_files.h"
#include "platform/linux/standard_streams.h"
#include "platform/linux/text_fields.h"

namespace quibbly::linux_services {
namespace {

using fakes::until;

/// A machine with the named programs on its search path, which write how they were started.
class Programs {
 public:
  explicit Programs(std::string_view names, const std::string& script = "echo \"${0##*/} $*\" >\"$0.tmp\"") {
    for (const auto name : fieldsOf(names)) {
      tree_.add(name, "#!/bin/sh\n" + script + "\nmv \"$0.tmp\" \"${0%/*}/started\"\n");
      std::filesystem::permissions(tree_.root() / name, std::filesystem::perms::owner_all);
    }
  }
  [[nodiscard]] std::string searchPath() const { return "/nowhere::." + (":" + tree_.root().string()); }
  /// What the started program wrote.
  [[nodiscard]] std::string report() const {
    EXPECT_TRUE(until([&] { return std::filesystem::exists(tree_.root() / "started"); }));
    return readFile(tree_.root() / "started").value_or("");
  }

 private:
  fakes::FileTree tree_;
};

TEST(DesktopWorkspace, the_settings_are_those_of_the_desktop_or_the_first_that_are_there) {
  const std::string all =
      "xdg-open lxqt-config-notificationd mate-notification-properties xfce4-notifyd-config systemsettings "
      "gnome-control-center";
  struct Case {
    std::string desktop;
    std::string installed;
    std::string started;
  };
  const auto cases = std::to_array<Case>({
      {"ubuntu:GNOME", all, "gnome-control-center notifications"},
      {"Unity", all, "gnome-control-center notifications"},
      {"kde", all, "systemsettings kcm_notifications"},
      {"XFCE", all, "xfce4-notifyd-config "},
      {"MATE", all, "mate-notification-properties "},
      {"LXQt", all, "lxqt-config-notificationd "},
      {"", all, "gnome-control-center notifications"},
      {"KDENLIVE", all, "gnome-control-center notifications"},
      {"KDE", "lxqt-config-notificationd xfce4-notifyd-config", "xfce4-notifyd-config "},
  });
  for (const auto& [desktop, installed, started] : cases) {
    const Programs programs(installed);
    DesktopWorkspace workspace(desktop, programs.searchPath());
    EXPECT_TRUE(workspace.openURL("x-apple.systempreferences:com.apple.preference.notifications")) << desktop;
    EXPECT_EQ(programs.report(), started + "\n") << desktop;
  }
  const Programs none("xdg-open");
  EXPECT_FALSE(DesktopWorkspace("KDE", none.searchPath()).openURL("x-apple.systempreferences:"));
}

TEST(DesktopWorkspace, other_urls_are_opened_by_the_desktop_if_they_are_urls) {
  const auto cases = std::to_array<std::pair<std::string, bool>>({
      {"https://example.org/?a=b&c;$(d) 'e'", true},
      {"svn+ssh2.x-y:z", true},
      {"example.org", false},
      {"-x:y", false},
      {":y", false},
      {"a b:c", false},
  });
  for (const auto& [url, isOpened] : cases) {
    const Programs programs("xdg-open");
    ASSERT_EQ(DesktopWorkspace("", programs.searchPath()).openURL(url), isOpened) << url;
    if (!isOpened) continue;
    EXPECT_EQ(programs.report(), "xdg-open " + url + "\n");
  }
  EXPECT_FALSE(DesktopWorkspace("", "").openURL("https://example.org")) << "without the program";
}

TEST(DesktopWorkspace, what_it_starts_is_a_program_of_its_own_that_leaves_no_zombie) {
  sigset_t blocked, before;
  ::sigemptyset(&blocked);
  ::sigaddset(&blocked, SIGTERM);
  ::pthread_sigmask(SIG_BLOCK, &blocked, &before);
  prepareStandardStreams("test");  // ignores SIGPIPE and SIGXFSZ
  const Programs programs(
      "xdg-open",
      "mask() { sed -n \"s/^$1:\\t/0x/p\" /proc/$$/status; }\n"
      "{ echo $$; cut -d' ' -f6 /proc/$$/stat; echo $(($(mask SigBlk))) $(($(mask SigIgn) & 0x1001000));"
      "readlink /proc/$$/fd/0 /proc/$$/fd/2; } >\"$0.tmp\"");
  EXPECT_TRUE(DesktopWorkspace("", programs.searchPath()).openURL("a:b"));
  for (const int signal : {SIGPIPE, SIGXFSZ}) std::signal(signal, SIG_DFL);
  ::pthread_sigmask(SIG_SETMASK, &before, nullptr);

  const std::string report = programs.report();
  const std::string process = report.substr(0, report.find('\n'));
  EXPECT_EQ(report, process + "\n" + process + "\n0 0\n/dev/null\n/dev/null\n");
  const auto number = parseInteger(process);
  ASSERT_TRUE(number);
  EXPECT_TRUE(until([&] { return ::kill(static_cast<pid_t>(*number), 0) != 0; }));
}

}  // namespace
}  // namespace quibbly::linux_services
