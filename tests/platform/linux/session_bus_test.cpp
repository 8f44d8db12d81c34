// The services on the session bus, on a real bus with other programs on it, and where there is none.

#include <chrono>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/manual_queue.h"
#include "fakes/private_bus.h"
#include "fakes/silent_socket.h"
#include "platform/linux/dbus_cross_process_center.h"
#include "platform/linux/dbus_widget_center.h"

namespace quibbly::linux_services {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;
using ::testing::UnorderedElementsAre;

constexpr auto roastRequest = "org.quibbly.Quibbly.roastRequest";
using Answers = std::vector<WidgetCenter::Configurations>;

class OnTheBus : public ::testing::Test {
 protected:
  Answers askForConfigurations() {
    Answers answers;
    widgets_.currentConfigurations([&](const auto& answer) { answers.push_back(answer); });
    EXPECT_THAT(answers, IsEmpty()) << "answered inside the call";
    EXPECT_TRUE(queue_.until([&] { return !answers.empty(); }));
    return answers;
  }
  static void count(void* calls) { ++*static_cast<int*>(calls); }

  fakes::PrivateBus daemon_;
  fakes::ManualQueue queue_;
  SessionBus bus_{queue_, daemon_.address()};
  DBusWidgetCenter widgets_{bus_};
  DBusCrossProcessCenter center_{bus_};
};

TEST_F(OnTheBus, widgets_hear_of_reloads_in_order_and_the_application_of_requests) {
  const fakes::BusPeer widget(daemon_.address());
  std::vector<std::string> heard;
  const auto hear = [](sd_bus_message* signal, void* notes, sd_bus_error*) {
    const char* kind = "";
    if (*sd_bus_message_get_signature(signal, 1) == 's') sd_bus_message_read(signal, "s", &kind);
    static_cast<std::vector<std::string>*>(notes)->push_back(
        std::string(sd_bus_message_get_path(signal)) + " " + sd_bus_message_get_interface(signal) + " " +
        sd_bus_message_get_member(signal) + "(" + sd_bus_message_get_signature(signal, 1) + ") " + kind);
    return 0;
  };
  ASSERT_GE(sd_bus_add_match(widget.get(), nullptr, "type='signal',path_namespace='/org/quibbly'", hear, &heard), 0);
  widgets_.reloadTimelines("org.quibbly.Quibbly.RoastWidget.v6");
  widgets_.reloadAllTimelines();
  center_.post(roastRequest);
  EXPECT_TRUE(queue_.until([&] {
    while (sd_bus_process(widget.get(), nullptr) > 0) {
    }
    return heard.size() == 3;
  }));
  EXPECT_THAT(heard, ElementsAre("/org/quibbly/WidgetCenter org.quibbly.WidgetCenter1 ReloadTimelines(s) "
                                 "org.quibbly.Quibbly.RoastWidget.v6",
                                 "/org/quibbly/WidgetCenter org.quibbly.WidgetCenter1 ReloadAllTimelines() ",
                                 "/org/quibbly/Quibbly org.quibbly.Quibbly roastRequest() "));
}

TEST_F(OnTheBus, what_is_placed_is_what_owns_a_name_of_a_kind) {
  EXPECT_EQ(askForConfigurations(), Answers{{{}}});
  const fakes::BusPeer desktop(daemon_.address());
  for (const char* name : {"org.quibbly.Quibbly.RoastWidget.v6.i4242", "org.quibbly.Quibbly.RoastWidget.v6.i4243",
                           "org.quibbly.Quibbly.RoastWidget.i1", "org.quibbly.Quibbly.RoastWidgets.i2",
                           "org.quibbly.Quibbly.RoastWidget.v6", "org.quibbly.Quibbly.RoastWidget.v6.x1"}) {
    ASSERT_GE(sd_bus_request_name(desktop.get(), name, 0), 0) << name;
  }
  EXPECT_THAT(askForConfigurations(), ElementsAre(Optional(UnorderedElementsAre("org.quibbly.Quibbly.RoastWidget.v6",
                                                                                "org.quibbly.Quibbly.RoastWidget.v6",
                                                                                "org.quibbly.Quibbly.RoastWidget"))));
}

TEST_F(OnTheBus, observers_hear_their_name_until_they_are_removed_also_on_a_bus_that_came_back) {
  int calls = 0;
  int others = 0;
  center_.addObserver(&calls, &count, roastRequest);
  center_.addObserver(&others, &count, "org.quibbly.Quibbly.somethingElse");
  center_.post(roastRequest);
  EXPECT_EQ(calls, 0);
  EXPECT_TRUE(queue_.until([&] { return calls == 1; }));

  daemon_.kill();
  EXPECT_EQ(askForConfigurations(), Answers{std::nullopt});
  EXPECT_EQ(askForConfigurations(), Answers{std::nullopt});
  daemon_.start();
  center_.post(roastRequest);
  EXPECT_TRUE(queue_.until([&] { return calls == 2; }));

  center_.removeObserver(&calls, roastRequest);
  center_.post(roastRequest);
  center_.post("org.quibbly.Quibbly.somethingElse");
  EXPECT_TRUE(queue_.until([&] { return others == 1; }));
  EXPECT_EQ(calls, 2);
}

TEST_F(OnTheBus, a_bus_that_hangs_holds_up_nobody_and_is_given_up_on) {
  daemon_.kill();
  const fakes::SilentSocket silent(daemon_.address().substr(std::string("unix:path=").size()));
  Answers answers;
  center_.post(roastRequest);
  widgets_.currentConfigurations([&](const auto& answer) { answers.push_back(answer); });
  queue_.advance(1999ms);
  EXPECT_THAT(answers, IsEmpty());
  queue_.advance(1ms);
  EXPECT_THAT(answers, ElementsAre(std::nullopt));
}

}  // namespace
}  // namespace quibbly::linux_services
