#include "platform/linux/power_profiles_daemon.h"

#include <optional>
#include <string>
#include <thread>
#include <utility>

#include <gtest/gtest.h>

#include "fakes/file_tree.h"
#include "fakes/private_bus.h"
#include "fakes/silent_socket.h"

namespace quibbly::linux_services {
namespace {

/// A profiles daemon on the bus. Without a profile it takes questions and never answers.
class ProfilesDaemon {
 public:
  ProfilesDaemon(const std::string& address, const char* service, const char* path, const char* profile)
      : profile_(profile), peer_(address) {
    sd_bus_add_object(peer_.get(), nullptr, path, &ProfilesDaemon::answer, this);
    sd_bus_request_name(peer_.get(), service, 0);
    thread_ = std::jthread([this](const std::stop_token& stop) {
      while (!stop.stop_requested()) {
        if (sd_bus_process(peer_.get(), nullptr) == 0) sd_bus_wait(peer_.get(), 10'000);
      }
    });
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
  fakes::BusPeer peer_;
  std::jthread thread_;  // last: it is stopped first
};

class PowerProfiles : public ::testing::Test {
 protected:
  static constexpr auto present = "org.freedesktop.UPower.PowerProfiles";
  static constexpr auto presentPath = "/org/freedesktop/UPower/PowerProfiles";

  std::optional<bool> ask() { return PowerProfilesDaemon(bus_.address()).enabled(); }

  fakes::PrivateBus bus_;
};

TEST_F(PowerProfiles, power_saver_is_low_power_and_any_other_profile_is_not) {
  for (const auto& [profile, expected] : {std::pair{"power-saver", true}, {"balanced", false}, {"", false}}) {
    const ProfilesDaemon daemon(bus_.address(), present, presentPath, profile);
    EXPECT_EQ(ask(), expected) << profile;
  }
  const ProfilesDaemon older(bus_.address(), "net.hadess.PowerProfiles", "/net/hadess/PowerProfiles", "power-saver");
  EXPECT_EQ(ask(), true) << "of the older name, when the present one is missing";
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
