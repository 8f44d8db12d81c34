// What every main queue must do, on the queue with the moved clock and on the one on Qt's event loop.

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/manual_queue.h"
#include "platform/launched_tasks.h"
#include "platform/qt/qt_main_queue.h"
#include "platform/sleep.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

/// A queue, and how a test lets it run until something holds.
struct Running {
  std::unique_ptr<MainQueue> queue;
  std::function<bool(std::function<bool()>)> until;
};

Running manual() {
  auto queue = std::make_unique<fakes::ManualQueue>();
  auto* const clock = queue.get();
  return {std::move(queue), [clock](const std::function<bool()>& holds) {
            for (int i = 0; i < 1000 && !holds(); ++i) clock->advance(1ms);
            return holds();
          }};
}

Running onQt() {
  return {std::make_unique<qt_services::QtMainQueue>(), [](const std::function<bool()>& holds) {
            const QDeadlineTimer limit(30s);
            while (!holds() && !limit.hasExpired()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
            return holds();
          }};
}

class MainQueueContract : public ::testing::TestWithParam<Running (*)()> {
 protected:
  MainQueue::Work note(std::string what) {
    return [this, what] { notes_.push_back(what); };
  }
  bool untilNoted(std::size_t count) {
    return running_.until([this, count] { return notes_.size() >= count; });
  }
  MainQueue& queue() { return *running_.queue; }

  std::vector<std::string> notes_;
  Running running_ = GetParam()();
};

TEST_P(MainQueueContract, posted_work_runs_later_in_the_order_of_posting_from_any_thread) {
  queue().post([this] {
    notes_.emplace_back("first");
    queue().post(note("third"));
  });
  std::thread([this] { queue().post(note("second")); }).join();
  EXPECT_THAT(notes_, ElementsAre());
  EXPECT_TRUE(untilNoted(3));
  EXPECT_THAT(notes_, ElementsAre("first", "second", "third"));
}

TEST_P(MainQueueContract, timed_work_runs_by_deadline_and_equal_deadlines_by_order_of_scheduling) {
  const auto now = queue().now();
  queue().runAt(now + 20ms, note("late"));
  queue().runAt(now + 5ms, note("early 1"));
  queue().runAt(now + 5ms, note("early 2"));
  queue().runAt(now - 1h, note("overdue"));
  const auto cancelled = queue().runAt(now + 6ms, note("cancelled"));
  queue().cancel(cancelled);
  EXPECT_THAT(notes_, ElementsAre());
  EXPECT_TRUE(untilNoted(4));
  EXPECT_GE(queue().now(), now + 20ms);
  EXPECT_THAT(notes_, ElementsAre("overdue", "early 1", "early 2", "late"));
  queue().cancel(cancelled);
}

TEST_P(MainQueueContract, a_watch_calls_while_there_is_something_to_read_and_may_end_itself) {
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  queue().watch(ends[0], [&] {
    char byte = 0;
    ASSERT_EQ(::read(ends[0], &byte, 1), 1);
    notes_.emplace_back(1, byte);
    if (byte == 'b') queue().unwatch(ends[0]);
  });
  ASSERT_EQ(::write(ends[1], "abc", 3), 3);
  EXPECT_THAT(notes_, ElementsAre());
  EXPECT_TRUE(untilNoted(2));
  queue().post(note("after"));
  EXPECT_TRUE(untilNoted(3));
  EXPECT_THAT(notes_, ElementsAre("a", "b", "after"));
  for (const int end : ends) ::close(end);
}

TEST_P(MainQueueContract, waiting_work_and_sleeping_tasks_go_with_the_queue) {
  const auto owned = std::make_shared<int>();
  const auto sleeper = [](std::shared_ptr<int> held) -> Task<> {
    co_await sleepFor(1h);
    held.reset();
  };
  queue().post([owned] {});
  queue().runAt(queue().now() + 1h, [owned] {});
  launch(queue(), sleeper(owned));
  bool slept = false;
  queue().post([&] { slept = true; });
  EXPECT_TRUE(running_.until([&] { return slept; }));
  // What goes with work may still use the queue.
  MainQueue& going = queue();
  const auto timer = going.runAt(going.now() + 2h, [owned] {});
  std::shared_ptr<void> parting(nullptr, [&going, timer, owned](void*) {
    going.cancel(timer);
    going.post([owned] {});
  });
  going.post([parting = std::move(parting)] {});
  EXPECT_GT(owned.use_count(), 1);
  running_.queue.reset();
  EXPECT_EQ(owned.use_count(), 1);
}

TEST(QtMainQueue, leaves_others_their_turn_when_work_schedules_itself_at_once) {
  const Running running = onQt();
  bool otherRan = false;
  std::function<void()> again = [&] {
    if (!otherRan) running.queue->runAt(running.queue->now(), [&again] { again(); });
  };
  again();
  running.queue->runAt(running.queue->now() + 1ms, [&] { running.queue->post([&] { otherRan = true; }); });
  EXPECT_TRUE(running.until([&] { return otherRan; }));
}

INSTANTIATE_TEST_SUITE_P(Queues, MainQueueContract, ::testing::Values(&manual, &onQt));

}  // namespace
}  // namespace quibbly

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
