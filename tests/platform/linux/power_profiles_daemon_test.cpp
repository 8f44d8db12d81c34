#include "platform/linux/power_profiles_daemon.h"

#include <csignal>
#include <cstdio>
#include <optional>
#include <string>
#include <systemd/sd-bus.h>
#include <thread>
#include <utility>

#include <gtest/gtest.h>

#include "fakes/file_tree.h"
#include "fakes/silent_socket.h"

namespace quibbly::linux_services {
namespace {

/// A message bus of the test's own, gone with the test.
class PrivateBus {
 public:
  PrivateBus() {
    FILE* const output = ::popen("exec dbus-daemon --session --fork --print-address=1 --print-pid=1", "r");
    char line[512] = "";
    if (std::fgets(line, sizeof line, output)) address_ = std::string(line).substr(0, std::string(line).find('\n'));
    if (std::fgets(line, sizeof line, output)) pid_ = std::atoi(line);
    ::pclose(output);
  }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;
  ~PrivateBus() {
    if (pid_ > 0) ::kill(pid_, SIGKILL);
  }
  [[nodiscard]] const std::string& address() const { return address_; }

 private:
  std::string address_;
  pid_t pid_ = 0;
};

/// A profiles daemon on the bus. Without a profile it takes questions and never answers.
class ProfilesDaemon {
 public:
  ProfilesDaemon(const std::string& address, const char* service, const char* path, const char* profile)
      : profile_(profile) {
    sd_bus_new(&bus_);
    sd_bus_set_address(bus_, address.c_str());
    sd_bus_set_bus_client(bus_, 1);
    sd_bus_start(bus_);
    sd_bus_add_object(bus_, nullptr, path, &ProfilesDaemon::answer, this);
    sd_bus_request_name(bus_, service, 0);
    thread_ = std::jthread([this](const std::stop_token& stop) {
      while (!stop.stop_requested()) {
        if (sd_bus_process(bus_, nullptr) == 0) sd_bus_wait(bus_, 10'000);
      }
    });
  }
  ProfilesDaemon(const ProfilesDaemon&) = delete;
  ProfilesDaemon& operator=(const ProfilesDaemon&) = delete;
  ~ProfilesDaemon() {
    thread_ = {};
    sd_bus_close_unref(bus_);
  }

 private:
  static int answer(sd_bus_message* question, void* self, sd_bus_error*) {
    const char* profile = static_cast<ProfilesDaemon*>(self)->profile_;
    const char* interface = nullptr;
    const char* property = nullptr;
    sd_bus_message_read(question, "ss", &interface, &property);
    if (!profile || std::string_view(property) != "ActiveProfile") return 1;
    return sd_bus_reply_method_return(question, "v", "s", profile);
  }

  const char* profile_;
  sd_bus* bus_ = nullptr;
  std::jthread thread_;
};

class PowerProfiles : public ::testing::Test {
 protected:
  static constexpr auto present = "org.freedesktop.UPower.PowerProfiles";
  static constexpr auto presentPath = "/org/freedesktop/UPower/PowerProfiles";
  static constexpr auto older = "net.hadess.PowerProfiles";
  static constexpr auto olderPath = "/net/hadess/PowerProfiles";

  void SetUp() override { ASSERT_NE(bus_.address(), "") << "dbus-daemon is needed"; }

  std::optional<bool> ask() { return PowerProfilesDaemon(bus_.address()).enabled(); }

  PrivateBus bus_;
};

TEST_F(PowerProfiles, power_saver_is_low_power_and_any_other_profile_is_not) {
  for (const auto& [profile, expected] : {std::pair{"power-saver", true}, {"balanced", false}, {"", false}}) {
    const ProfilesDaemon daemon(bus_.address(), present, presentPath, profile);
    EXPECT_EQ(ask(), expected) << profile;
  }
}

TEST_F(PowerProfiles, the_older_name_is_asked_when_the_present_one_is_missing) {
  const ProfilesDaemon daemon(bus_.address(), older, olderPath, "power-saver");
  EXPECT_EQ(ask(), true);
}

TEST_F(PowerProfiles, nobody_knows_without_a_daemon_or_with_one_that_hangs) {
  EXPECT_EQ(ask(), std::nullopt);
  const ProfilesDaemon hanging(bus_.address(), present, presentPath, nullptr);
  EXPECT_EQ(ask(), std::nullopt);
}

TEST(PowerProfilesBus, that_is_missing_or_hangs_gives_no_answer_and_no_endless_wait) {
  EXPECT_EQ(PowerProfilesDaemon("unix:path=/nonexistent").enabled(), std::nullopt);
  const fakes::FileTree files;
  const fakes::SilentSocket bus((files.root() / "bus").string());
  ASSERT_TRUE(bus.listening());
  EXPECT_EQ(PowerProfilesDaemon("unix:path=" + (files.root() / "bus").string()).enabled(), std::nullopt);
}

}  // namespace
}  // namespace quibbly::linux_services
