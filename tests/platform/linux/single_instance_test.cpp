#include <chrono>
#include <functional>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/file_tree.h"
#include "fakes/manual_queue.h"
#include "fakes/private_bus.h"
#include "fakes/silent_socket.h"
#include "platform/linux/dbus_single_instance.h"

namespace quibbly::linux_services {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using Place = SingleInstance::Place;

/// A start of the program: a connection of its own, and a note of what it was asked.
struct Start {
  Start(MainQueue& queue, const std::string& busAddress, const std::filesystem::path& lockFile,
        std::vector<std::string> urls = {})
      : bus(queue, busAddress), lock(lockFile), instance(queue, bus, lock) {
    instance.claim({.activate = [this] { asked.emplace_back("activate"); },
                    .open = [this](const auto& opened) { asked.insert(asked.end(), opened.begin(), opened.end()); },
                    .action = [this](const auto& action) { asked.push_back("action " + action); }},
                   std::move(urls), [this](Place given) { place = given; });
  }

  SessionBus bus;
  LockFile lock;
  DBusSingleInstance instance;
  std::optional<Place> place;
  std::vector<std::string> asked;
};

using Append = std::function<int(sd_bus_message* call)>;

/// Calls as another program does, and waits for nothing. It is told the name of the error, or an empty one for none.
void ask(SessionBus& other, const char* method, const Append& append, std::optional<std::string>& error) {
  const BusMessage call =
      other.newCall("org.quibbly.Quibbly", "/org/quibbly/Quibbly", "org.freedesktop.Application", method);
  EXPECT_GE(append(call.get()), 0);
  other.call(call, [&error](sd_bus_message* answer) {
    const sd_bus_error* const failed = answer != nullptr ? sd_bus_message_get_error(answer) : nullptr;
    error = answer == nullptr ? "no answer" : failed != nullptr ? failed->name : "";
  });
}

class Instances : public ::testing::Test {
 protected:
  Place placeOf(const Start& start) {
    EXPECT_TRUE(queue_.until([&] { return start.place.has_value(); }));
    return start.place.value_or(Place::refused);
  }

  std::string answerTo(const char* method, const Append& append) {
    std::optional<std::string> error;
    ask(other_, method, append, error);
    EXPECT_TRUE(queue_.until([&] { return error.has_value(); }));
    return error.value_or("nothing");
  }

  fakes::FileTree files_;
  std::string none_ = "unix:path=" + (files_.root() / "none").string();
  std::filesystem::path lock_ = files_.root() / "quibbly.lock";
  fakes::PrivateBus daemon_;
  fakes::ManualQueue queue_;
  SessionBus other_{queue_, daemon_.address()};
};

TEST_F(Instances, a_later_start_hands_over_and_the_next_one_after_the_end_is_the_first_again) {
  {
    Start first(queue_, daemon_.address(), lock_, {"quibbly://own"});
    ASSERT_EQ(placeOf(first), Place::first);
    EXPECT_EQ(placeOf(Start(queue_, daemon_.address(), lock_)), Place::handedOver);
    EXPECT_EQ(placeOf(Start(queue_, daemon_.address(), lock_, {"quibbly://a", "quibbly://b"})), Place::handedOver);
    queue_.run();
    EXPECT_THAT(first.asked, ElementsAre("activate", "quibbly://a", "quibbly://b"));
  }
  EXPECT_EQ(placeOf(Start(queue_, daemon_.address(), lock_)), Place::first);
}

int nothing(sd_bus_message* call) { return sd_bus_message_append(call, "a{sv}", 0); }
Append urls(std::vector<std::string> opened) {
  return [opened = std::move(opened)](sd_bus_message* call) {
    sd_bus_message_open_container(call, 'a', "s");
    for (const std::string& url : opened) sd_bus_message_append_basic(call, 's', url.c_str());
    sd_bus_message_close_container(call);
    return nothing(call);
  };
}
Append action(std::string name) {
  return [name = std::move(name)](auto* call) { return sd_bus_message_append(call, "sava{sv}", name.c_str(), 0, 0); };
}

TEST_F(Instances, answers_other_programs_and_refuses_what_no_user_did) {
  Start first(queue_, daemon_.address(), lock_);
  ASSERT_EQ(placeOf(first), Place::first);
  EXPECT_EQ(answerTo("ActivateAction", action("RoastMe")), "");
  EXPECT_EQ(answerTo("Open", urls({})), "");
  const std::string longText(SingleInstance::longestText + 1, 'x');
  const std::pair<const char*, Append> refused[] = {
      {"Open", urls({longText})},
      {"Open", urls(std::vector<std::string>(SingleInstance::mostAtOnce + 1, "quibbly://roast"))},
      {"ActivateAction", action(longText)},
      {"Activate", [](auto* call) { return sd_bus_message_append(call, "s", "x"); }}};
  for (const auto& [method, append] : refused) EXPECT_NE(answerTo(method, append), "") << method;
  queue_.run();
  EXPECT_THAT(first.asked, ElementsAre("action RoastMe"));
}

TEST_F(Instances, hears_so_much_a_second_and_no_more) {
  Start first(queue_, daemon_.address(), lock_);
  ASSERT_EQ(placeOf(first), Place::first);
  const std::vector<std::string> half(SingleInstance::mostAtOnce / 2, "quibbly://roast");
  for (unsigned second = 1; second <= 2; ++second) {
    queue_.advance(1s);
    for (const char* answer : {"", "", SD_BUS_ERROR_LIMITS_EXCEEDED}) EXPECT_EQ(answerTo("Open", urls(half)), answer);
    EXPECT_EQ(answerTo("Activate", nothing), SD_BUS_ERROR_LIMITS_EXCEEDED);
    queue_.run();
    EXPECT_EQ(first.asked.size(), second * SingleInstance::mostAtOnce);
  }
}

/// What the bus starts a program for, and what the program then hears of it.
std::vector<std::string> heardByStarted(const char* method, const Append& append, bool isLocked) {
  const fakes::FileTree files;
  const auto lockFile = files.root() / "lock";
  LockFile held(lockFile);
  EXPECT_TRUE(!isLocked || held.take());
  fakes::PrivateBus daemon;
  daemon.offer("org.quibbly.Quibbly", "/bin/sleep 40");
  fakes::ManualQueue queue;
  SessionBus other(queue, daemon.address());
  std::optional<std::string> error;
  ask(other, method, append, error);
  // What the bus answers now, it answers after it has read the call.
  bool isRead = false;
  other.call(other.newCall("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId"),
             [&](sd_bus_message*) { isRead = true; });
  EXPECT_TRUE(queue.until([&] { return isRead; }));
  const Start started(queue, daemon.address(), lockFile);
  EXPECT_TRUE(queue.until([&] { return error.has_value(); }));
  queue.run();
  EXPECT_EQ(error == "", !isLocked) << method;
  return started.asked;
}

TEST_F(Instances, hears_what_the_bus_starts_it_for_unless_the_start_is_all_of_it) {
  EXPECT_THAT(heardByStarted("Open", urls({"quibbly://roast"}), false), ElementsAre("quibbly://roast"));
  EXPECT_THAT(heardByStarted("ActivateAction", action("RoastMe"), false), ElementsAre("action RoastMe"));
  EXPECT_THAT(heardByStarted("Activate", nothing, false), ElementsAre());
  EXPECT_THAT(heardByStarted("Activate", nothing, true), ElementsAre());
  EXPECT_THAT(heardByStarted("Open", urls({"quibbly://roast"}), true), ElementsAre());
}

TEST_F(Instances, without_a_bus_in_common_the_lock_keeps_the_second_out) {
  lock_ = files_.root() / "new" / "directory" / "lock";
  const Start first(queue_, none_, lock_);
  ASSERT_EQ(placeOf(first), Place::first);
  for (const std::string& address : {none_, daemon_.address()}) {
    EXPECT_EQ(placeOf(Start(queue_, address, lock_)), Place::refused) << address;
  }
}

TEST_F(Instances, does_without_a_lock_where_no_file_of_its_own_can_be) {
  files_.add("file", "");
  files_.fifo("fifo");
  files_.add("foreign", "");
  constexpr uid_t somebodyElse = 65534;
  const bool isRoot = ::chown((files_.root() / "foreign").c_str(), somebodyElse, somebodyElse) == 0;
  for (const char* lock : {"file/lock", "fifo", "foreign"}) {
    const Start first(queue_, none_, files_.root() / lock);
    EXPECT_EQ(placeOf(first), Place::first) << lock;
    const bool isHeld = !isRoot && lock == std::string_view("foreign");
    EXPECT_EQ(placeOf(Start(queue_, none_, files_.root() / lock)), isHeld ? Place::refused : Place::first) << lock;
  }
}

TEST_F(Instances, a_bus_that_hangs_is_given_up_on_and_a_first_that_does_not_answer_refuses) {
  const fakes::SilentSocket silent((files_.root() / "silent").string());
  const Start start(queue_, "unix:path=" + (files_.root() / "silent").string(), lock_);
  queue_.run();
  EXPECT_EQ(start.place, std::nullopt);
  queue_.advance(5s);
  EXPECT_EQ(start.place, Place::first);

  const fakes::BusPeer mute(daemon_.address());
  sd_bus_request_name(mute.get(), "org.quibbly.Quibbly", 0);
  EXPECT_EQ(placeOf(Start(queue_, daemon_.address(), files_.root() / "other.lock")), Place::refused);
}

TEST_F(Instances, the_name_is_taken_again_on_a_new_connection) {
  Start first(queue_, daemon_.address(), lock_);
  ASSERT_EQ(placeOf(first), Place::first);
  daemon_.kill();
  ASSERT_TRUE(queue_.until([&] { return !first.bus.newSignal("/a", "a.b", "c"); }));
  daemon_.start();
  first.bus.send(first.bus.newSignal("/a", "a.b", "c"));
  const Start later(queue_, daemon_.address(), files_.root() / "other.lock");
  EXPECT_EQ(placeOf(later), Place::handedOver);
}

}  // namespace
}  // namespace quibbly::linux_services
