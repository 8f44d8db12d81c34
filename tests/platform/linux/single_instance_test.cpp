#include <chrono>

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

class Instances : public ::testing::Test {
 protected:
  Place placeOf(const Start& start) {
    EXPECT_TRUE(queue_.until([&] { return start.place.has_value(); }));
    return start.place.value_or(Place::refused);
  }

  fakes::FileTree files_;
  std::filesystem::path lock_ = files_.root() / "quibbly.lock";
  fakes::PrivateBus daemon_;
  fakes::ManualQueue queue_;
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

TEST_F(Instances, answers_other_programs_and_refuses_what_no_user_did) {
  Start first(queue_, daemon_.address(), lock_);
  ASSERT_EQ(placeOf(first), Place::first);
  SessionBus other(queue_, daemon_.address());
  const auto answerTo = [&](const char* method, const auto& append) {
    const BusMessage call =
        other.newCall("org.quibbly.Quibbly", "/org/quibbly/Quibbly", "org.freedesktop.Application", method);
    EXPECT_GE(append(call.get()), 0);
    std::optional<std::string> error;
    other.call(call, [&](sd_bus_message* answer) {
      const sd_bus_error* const failed = answer ? sd_bus_message_get_error(answer) : nullptr;
      error = answer == nullptr ? "no answer" : failed ? failed->name : "";
    });
    EXPECT_TRUE(queue_.until([&] { return error.has_value(); }));
    return error.value_or("nothing");
  };
  EXPECT_EQ(
      answerTo("ActivateAction", [](auto* call) { return sd_bus_message_append(call, "sava{sv}", "RoastMe", 0, 0); }),
      "");
  EXPECT_EQ(answerTo("Open", [](auto* call) { return sd_bus_message_append(call, "asa{sv}", 0, 0); }), "");
  queue_.run();
  EXPECT_THAT(first.asked, ElementsAre("action RoastMe"));
  const std::string longText(5000, 'x');
  for (const char* method : {"Open", "ActivateAction"}) {
    EXPECT_NE(answerTo(method,
                       [&](auto* call) {
                         return std::string_view(method) == "Open"
                                    ? sd_bus_message_append(call, "asa{sv}", 1, longText.c_str(), 0)
                                    : sd_bus_message_append(call, "sava{sv}", longText.c_str(), 0, 0);
                       }),
              "")
        << method;
  }
  EXPECT_NE(answerTo("Activate", [](auto* call) { return sd_bus_message_append(call, "s", "x"); }), "");
  queue_.run();
  EXPECT_THAT(first.asked, ElementsAre("action RoastMe"));
}

TEST_F(Instances, without_a_bus_in_common_the_lock_keeps_the_second_out) {
  const std::string none = "unix:path=" + (files_.root() / "none").string();
  const Start first(queue_, none, lock_);
  ASSERT_EQ(placeOf(first), Place::first);
  for (const std::string& address : {none, daemon_.address()}) {
    EXPECT_EQ(placeOf(Start(queue_, address, lock_)), Place::refused) << address;
  }
}

TEST_F(Instances, the_lock_makes_its_directory_and_is_done_without_where_none_can_be) {
  const std::string none = "unix:path=" + (files_.root() / "none").string();
  const auto inNewDirectory = files_.root() / "new" / "directory" / "lock";
  const Start first(queue_, none, inNewDirectory);
  ASSERT_EQ(placeOf(first), Place::first);
  EXPECT_EQ(placeOf(Start(queue_, none, inNewDirectory)), Place::refused);
  files_.add("file", "");
  EXPECT_EQ(placeOf(Start(queue_, none, files_.root() / "file" / "lock")), Place::first);
}

TEST_F(Instances, a_bus_that_hangs_is_given_up_on) {
  const fakes::SilentSocket silent((files_.root() / "silent").string());
  const Start start(queue_, "unix:path=" + (files_.root() / "silent").string(), lock_);
  queue_.run();
  EXPECT_EQ(start.place, std::nullopt);
  queue_.advance(5s);
  EXPECT_EQ(start.place, Place::first);
}

TEST_F(Instances, a_first_that_does_not_answer_refuses) {
  const fakes::BusPeer mute(daemon_.address());
  sd_bus_request_name(mute.get(), "org.quibbly.Quibbly", 0);
  EXPECT_EQ(placeOf(Start(queue_, daemon_.address(), lock_)), Place::refused);
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
