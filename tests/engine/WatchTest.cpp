#include <atomic>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

#include "session/engine/FairMutex.h"
#include "session/engine/Watch.h"

namespace pstolvane1 {
namespace {

using std::chrono::milliseconds;

TEST(Watch, WithoutALimitItEndsNothing) {
  Watch watch(milliseconds(0));
  watch.Start();
  std::this_thread::sleep_for(milliseconds(5));
  EXPECT_EQ(watch.Check(), Stop::kNone);
}

TEST(Watch, CountsTheTimeOfAllItsSpells) {
  Watch watch(milliseconds(40));
  for (int i = 0; i < 2; ++i) {
    watch.Start();
    std::this_thread::sleep_for(milliseconds(25));
    watch.Pause();
    std::this_thread::sleep_for(milliseconds(100));
  }
  watch.Start();
  EXPECT_EQ(watch.Check(), Stop::kTimeLimit);
}

TEST(Watch, ASignalEndsWhatBeganBeforeIt) {
  CancelSignal signal;
  signal.Raise();
  Watch watch(milliseconds(0), {nullptr, &signal});
  watch.Start();
  EXPECT_EQ(watch.Check(), Stop::kNone);
  signal.Raise();
  EXPECT_EQ(watch.Check(), Stop::kCancelled);
  EXPECT_EQ(watch.Check(), Stop::kCancelled);
}

TEST(FairMutex, ServesInTheOrderOfComing) {
  FairMutex mutex;
  std::vector<int> order;
  mutex.lock();
  EXPECT_FALSE(mutex.try_lock());
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&, i] {
      mutex.lock();
      order.push_back(i);
      mutex.unlock();
    });
    std::this_thread::sleep_for(milliseconds(20));
  }
  mutex.unlock();
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 3}));
  EXPECT_TRUE(mutex.try_lock());
  mutex.unlock();
}

}  // namespace
}  // namespace pstolvane1
