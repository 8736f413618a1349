#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <memory>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "session/data/MessageLoop.h"

namespace pstolvane1 {
namespace {

using std::chrono::milliseconds;

void Post(std::function<void()> message) { MessageQueue::OfThisThread()->Post(std::move(message)); }

bool IsReadable(int descriptor) {
  pollfd wanted{descriptor, POLLIN, 0};
  return ::poll(&wanted, 1, 0) == 1;
}

TEST(MessageLoop, DeliversInTheOrderOfComing) {
  std::string said;
  for (const char c : {'a', 'b', 'c'}) Post([&said, c] { said += c; });
  EXPECT_EQ(said, "");
  DoEvents();
  EXPECT_EQ(said, "abc");
  DoEvents();
  EXPECT_EQ(said, "abc");
}

TEST(MessageLoop, DoesNotDeliverWhatComesMeanwhile) {
  int delivered = 0;
  std::function<void()> again = [&] {
    ++delivered;
    Post(again);
  };
  Post(again);
  DoEvents();
  EXPECT_EQ(delivered, 1);
  DoEvents();
  EXPECT_EQ(delivered, 2);
  again = [] {};
  DoEvents();
}

TEST(MessageLoop, ACallFromInsideAMessageDeliversTheMessagesBehindIt) {
  std::string said;
  Post([&] {
    said += "[";
    DoEvents();
    said += "]";
  });
  Post([&] { said += "b"; });
  Post([&] { said += "c"; });
  DoEvents();
  EXPECT_EQ(said, "[bc]");
}

TEST(MessageLoop, AnExceptionGoesToThePumpAndTheRestStays) {
  std::string said;
  Post([&] { said += "a"; });
  Post([] { throw std::runtime_error("handler"); });
  Post([&] { said += "c"; });
  EXPECT_THROW(DoEvents(), std::runtime_error);
  EXPECT_EQ(said, "a");
  DoEvents();
  EXPECT_EQ(said, "ac");
}

TEST(MessageLoop, AnExceptionPassesThroughANestedCall) {
  std::string said;
  Post([&] {
    EXPECT_THROW(DoEvents(), std::runtime_error);
    said += "caught";
  });
  Post([] { throw std::runtime_error("handler"); });
  DoEvents();
  EXPECT_EQ(said, "caught");
}

TEST(MessageLoop, AnEmptyMessageIsNone) {
  std::string said;
  Post(nullptr);
  Post([&] { said += "a"; });
  DoEvents();
  EXPECT_EQ(said, "a");
}

TEST(MessageLoop, WaitingWakesForAMessageFromAnotherThread) {
  int delivered = 0;
  auto queue = MessageQueue::OfThisThread();
  std::thread poster([&delivered, queue] {
    std::this_thread::sleep_for(milliseconds(20));
    queue->Post([&delivered] { ++delivered; });
  });
  EXPECT_TRUE(WaitForEvents(std::chrono::hours(24 * 365 * 1000)));
  EXPECT_EQ(delivered, 1);
  poster.join();
}

TEST(MessageLoop, WaitingEndsWhenTheTimeIsOver) {
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_FALSE(WaitForEvents(milliseconds(30)));
  EXPECT_GE(std::chrono::steady_clock::now() - begin, milliseconds(30));
  EXPECT_FALSE(WaitForEvents(milliseconds(0)));
  EXPECT_FALSE(WaitForEvents(milliseconds(-5)));
}

TEST(MessageLoop, TheDescriptorIsReadableWhileMessagesWait) {
  // On a thread of its own, because the descriptor is made at the first call.
  std::thread([] {
    Post([] {});
    const int descriptor = EventDescriptor();
    EXPECT_EQ(EventDescriptor(), descriptor);
    EXPECT_TRUE(IsReadable(descriptor));
    DoEvents();
    EXPECT_FALSE(IsReadable(descriptor));
    Post([] {});
    Post([] { throw std::runtime_error("handler"); });
    Post([] {});
    EXPECT_TRUE(IsReadable(descriptor));
    EXPECT_THROW(DoEvents(), std::runtime_error);
    EXPECT_TRUE(IsReadable(descriptor));
    DoEvents();
    EXPECT_FALSE(IsReadable(descriptor));
  }).join();
}

TEST(MessageLoop, EachThreadHasItsOwnQueue) {
  std::string said;
  Post([&said] { said += "mine"; });
  std::thread([] { DoEvents(); }).join();
  EXPECT_EQ(said, "");
  DoEvents();
  EXPECT_EQ(said, "mine");
}

TEST(MessageLoop, PostingToAThreadThatHasEndedDropsTheMessage) {
  std::shared_ptr<MessageQueue> queue;
  auto undelivered = std::make_shared<int>(1);
  std::thread([&] {
    queue = MessageQueue::OfThisThread();
    // Holds the queue, as what waits for delivery may: the ring must not outlive the thread.
    queue->Post([undelivered, queue] {});
  }).join();
  EXPECT_EQ(undelivered.use_count(), 1);
  EXPECT_EQ(queue.use_count(), 1);
  queue->Post([undelivered] {});
  EXPECT_EQ(undelivered.use_count(), 1);
}

TEST(MessageLoop, FourThreadsPostToOne) {
  constexpr int kEach = 2000;
  const auto queue = MessageQueue::OfThisThread();
  std::vector<std::vector<int>> came(4);
  std::vector<std::thread> posters;
  for (std::size_t poster = 0; poster < came.size(); ++poster) {
    posters.emplace_back([&came, queue, poster] {
      for (int i = 0; i < kEach; ++i)
        queue->Post([&came, poster, i] { came[poster].push_back(i); });
    });
  }
  const auto all_came = [&] {
    for (const auto& numbers : came) {
      if (numbers.size() < kEach) return false;
    }
    return true;
  };
  while (!all_came()) ASSERT_TRUE(WaitForEvents(std::chrono::seconds(30)));
  for (std::thread& poster : posters) poster.join();
  for (const auto& numbers : came) {
    for (int i = 0; i < kEach; ++i) ASSERT_EQ(numbers[static_cast<std::size_t>(i)], i);
  }
}

}  // namespace
}  // namespace pstolvane1
