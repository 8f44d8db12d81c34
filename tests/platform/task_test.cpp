#include "platform/task.h"

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/manual_queue.h"
#include "platform/completion.h"
#include "platform/launched_tasks.h"
#include "platform/sleep.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

using Notes = std::vector<std::string>;

class Tasks : public ::testing::Test {
 protected:
  Task<> sleeper(std::string name, ContinuousClock::duration duration) {
    co_await sleepFor(duration);
    const bool cancelled = co_await isCancelled();
    notes_.push_back(name + (cancelled ? " cancelled" : " woke"));
  }

  Task<int> sum(int left, int right) {
    co_await sleepFor(10ms);
    co_return left + right;
  }

  Task<> addUp() {
    int total = 0;
    for (int i = 1; i <= 3; ++i) total = co_await sum(total, i);
    notes_.push_back(std::to_string(total));
  }

  Task<> twoSteps() {
    co_await sleeper("first", 1s);
    co_await sleeper("second", 1s);
  }

  Task<> awaiting(Completion<int>::Start start) {
    // Notes the end of the task, however it comes.
    const std::shared_ptr<void> witness(nullptr, [this](void*) { notes_.emplace_back("awaiting gone"); });
    const int answer = co_await Completion<int>(std::move(start));
    notes_.push_back("answer " + std::to_string(answer));
  }

  Notes notes_;
  std::function<void(int)> answerer_;
  fakes::ManualQueue queue_;
};

TEST_F(Tasks, start_on_the_queue_and_give_results_to_whoever_awaits_them) {
  launch(queue_, addUp());
  queue_.advance(29ms);
  EXPECT_THAT(notes_, ElementsAre());
  queue_.advance(1ms);
  EXPECT_THAT(notes_, ElementsAre("6"));
}

TEST_F(Tasks, cancelling_wakes_the_sleep_at_the_end_of_a_chain_and_ends_later_ones_at_once_also_before_the_start) {
  const TaskHandle handle = launch(queue_, twoSteps());
  queue_.advance(500ms);
  handle.cancel();
  EXPECT_THAT(notes_, ElementsAre());  // never inside the call
  queue_.run();
  EXPECT_THAT(notes_, ElementsAre("first cancelled", "second cancelled"));
  handle.cancel();

  notes_.clear();
  launch(queue_, twoSteps()).cancel();
  queue_.run();
  EXPECT_THAT(notes_, ElementsAre("first cancelled", "second cancelled"));
}

TEST_F(Tasks, dropping_the_queue_destroys_tasks_wherever_they_stand) {
  {
    fakes::ManualQueue dying;
    launch(dying, awaiting([this](auto answer) { answerer_ = answer; }));
    dying.run();
    launch(dying, sleeper("never started", 1s));
  }
  EXPECT_THAT(notes_, ElementsAre("awaiting gone"));
}

TEST_F(Tasks, an_answer_resumes_on_the_queue_and_only_the_first_counts) {
  launch(queue_, awaiting([this](auto answer) { answerer_ = answer; }));
  queue_.run();
  std::thread other([this] {
    answerer_(1);
    answerer_(2);
  });
  other.join();
  EXPECT_THAT(notes_, ElementsAre());
  queue_.run();
  EXPECT_THAT(notes_, ElementsAre("answer 1", "awaiting gone"));
}

}  // namespace
}  // namespace quibbly
