// The container and the store under fire from several processes. QUIBBLY_STRESS_SECONDS lengthens each test.

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/process.h"
#include "fakes/published_home.h"
#include "shared/mailbox.h"
#include "shared/pending_notify.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using fakes::Process;
using fakes::PublishedHome;

std::chrono::seconds duration() {
  const char* const seconds = std::getenv("QUIBBLY_STRESS_SECONDS");
  return std::chrono::seconds(seconds ? std::atoi(seconds) : 1);
}

/// Another process that does the work, and then ends with status 0 when the work says so.
pid_t inChild(const std::function<bool()>& work) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(work() ? 0 : 1);
  return child;
}

/// What is wrong with a container and a store that were published to at least once; empty for nothing.
std::string fault(PublishedHome& home) {
  for (const std::string& name : home.missing()) return name;
  const auto text = home.storage.readText("currentRoast.txt");
  // Its last part is a number and so many letters as the number asks for.
  const std::string roast = text->substr(std::min(text->size(), text->find('\n', text->find('\n') + 1) + 1));
  const auto letters = static_cast<std::size_t>(std::ranges::count(roast, 'x'));
  if (letters != static_cast<std::size_t>(std::atoi(roast.c_str())) % 5 * 3000) return "currentRoast.txt is torn";
  const auto values = home.preferences.all().value();
  if (values.at("roastTemplateId") != PreferenceValue(std::to_string(std::get<std::int64_t>(values.at("battery"))))) {
    return "keys of two publications";
  }
  return "";
}

class Container : public ::testing::Test {
 protected:
  fakes::FileTree tree_;
};

TEST_F(Container, readers_never_meet_a_torn_or_missing_file_while_a_writer_publishes) {
  PublishedHome(tree_.root()).publish(0);
  const auto end = Clock::now() + duration();
  const auto reader = [&] {
    PublishedHome home(tree_.root());
    for (bool isLast = false; !isLast;) {
      isLast = Clock::now() >= end && home.store.lastRoast()->templateId != "0";
      if (const std::string found = fault(home); !found.empty()) {
        std::fprintf(stderr, "%s\n", found.c_str());
        return false;
      }
    }
    return true;
  };
  Process readers[] = {Process(inChild(reader)), Process(inChild(reader))};
  PublishedHome writer(tree_.root());
  for (int number = 1; number == 1 || Clock::now() < end; ++number) writer.publish(number);
  for (Process& child : readers) EXPECT_EQ(child.wait(), 0);
}

TEST_F(Container, a_writer_killed_at_any_moment_leaves_everything_whole) {
  PublishedHome(tree_.root()).publish(0);
  std::minstd_rand random(std::random_device{}());
  int last = 0;
  auto longest = 20ms;  // more on a machine that publishes nothing in that time
  const auto begin = Clock::now();
  while (Clock::now() < begin + duration() || last == 0) {
    ASSERT_LT(Clock::now(), begin + duration() + 60s) << "nothing was ever published";
    Process writer(inChild([&]() -> bool {
      PublishedHome home(tree_.root());
      for (int number = last + 1;; ++number) home.publish(number);
    }));
    std::this_thread::sleep_for(random() % 1000 * longest / 1000);
    EXPECT_EQ(writer.end(SIGKILL), -SIGKILL);
    PublishedHome home(tree_.root());
    ASSERT_EQ(fault(home), "");
    const int published = std::stoi(*home.store.lastRoast()->templateId);
    ASSERT_GE(published, last) << "went back";
    if (published == last) longest = std::min(2 * longest, 640ms);
    last = published;
  }
}

TEST_F(Container, several_intents_at_once_leave_whole_entries_to_the_application) {
  PublishedHome home(tree_.root());
  home.publish(0);
  const std::string run = "DBUS_SESSION_BUS_ADDRESS=disabled: XDG_DATA_HOME=" + (tree_.root() / "data").string() +
                          " XDG_CONFIG_HOME=" + (tree_.root() / "config").string() + " " QUIBBLY_ROAST_ME;
  constexpr int programs = 4;
  for (int i = 0; i < programs; ++i) inChild([&] { return std::system(run.c_str()) == 0; });
  const Mailbox<PendingNotify> box(home.storage, home.files, "pendingNotify.json");
  int taken = 0;
  const auto takeAll = [&] {
    for (; const auto entry = box.take(); ++taken) {
      EXPECT_EQ(entry->title, "Your Mac would like a word");
      EXPECT_FALSE(entry->body.empty() || entry->category.empty());
    }
  };
  for (int running = programs; running > 0; takeAll()) {
    int status = 0;
    for (; ::waitpid(-1, &status, WNOHANG) > 0; --running) EXPECT_EQ(status, 0);
    std::this_thread::sleep_for(1ms);
  }
  EXPECT_FALSE(std::filesystem::exists(home.containerURL / "pendingNotify.json")) << "an entry was torn";
  EXPECT_GT(taken, 0);
  EXPECT_TRUE(home.store.lastRoast()->ruleId.has_value()) << "an intent's roast";
  EXPECT_EQ(home.preferences.all()->size(), 15U);
}

}  // namespace
}  // namespace quibbly
