#include "platform/serial_queue.h"

#include <algorithm>
#include <latch>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

namespace quibbly {
namespace {

TEST(SerialQueueTest, runs_work_in_the_order_of_posting_on_one_other_thread) {
  std::vector<int> order;
  std::thread::id ranOn;
  std::latch done(1);
  SerialQueue queue;
  for (int i = 0; i < 100; ++i) queue.post([&order, i] { order.push_back(i); });
  queue.post([&] {
    ranOn = std::this_thread::get_id();
    done.count_down();
  });
  done.wait();
  ASSERT_EQ(order.size(), 100u);
  EXPECT_TRUE(std::ranges::is_sorted(order));
  EXPECT_NE(ranOn, std::this_thread::get_id());
}

TEST(SerialQueueTest, finishes_the_running_work_and_lets_go_of_the_rest_when_it_goes) {
  std::latch running(1);
  std::latch goOn(1);
  bool finished = false;
  auto owned = std::make_shared<int>();
  {
    SerialQueue queue;
    queue.post([&] {
      running.count_down();
      goOn.wait();
      finished = true;
    });
    for (int i = 0; i < 100; ++i) queue.post([owned] {});
    running.wait();
    goOn.count_down();
  }
  EXPECT_TRUE(finished);
  EXPECT_EQ(owned.use_count(), 1);
}

}  // namespace
}  // namespace quibbly
