#include "session/data/MessageLoop.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

#include "session/data/Error.h"
#include "session/data/OutOfMemory.h"

namespace pstolvane1 {
namespace {

class ThreadQueue final : public MessageQueue {
 public:
  ~ThreadQueue() override {
    if (descriptor_ >= 0) ::close(descriptor_);
  }

  void Post(Message message) override {
    {
      const std::lock_guard lock(mutex_);
      if (ended_ || !message) return;
      waiting_.push_back({++last_number_, std::move(message)});
      any_waiting_.store(true, std::memory_order_release);
      if (waiting_.size() == 1) Signal();
    }
    arrived_.notify_one();
  }

  // Delivers what waits now, not what comes meanwhile: a message that posts another one every time
  // would never let its caller go.
  bool Deliver() {
    // Row builders come here after every row, nearly always for nothing.
    if (!any_waiting_.load(std::memory_order_acquire)) return false;
    const std::uint64_t last = LastWaiting();
    bool any = false;
    while (Message message = Take(last)) {
      any = true;
      TellingWhatRanOut("delivering what came in the background", message);
    }
    return any;
  }

  void Wait(std::chrono::milliseconds at_most) {
    // Beyond a year the clock's arithmetic would overflow, and nobody can tell the difference.
    const auto limit = std::clamp(at_most, std::chrono::milliseconds(0),
                                  std::chrono::milliseconds(std::chrono::hours(24 * 365)));
    std::unique_lock lock(mutex_);
    arrived_.wait_for(lock, limit, [this] { return !waiting_.empty(); });
  }

  int Descriptor() {
    const std::lock_guard lock(mutex_);
    if (descriptor_ < 0) {
      descriptor_ = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
      if (descriptor_ < 0) {
        throw Error(ErrorNumber::kObjectNotSet,
                    "the system has no file descriptor left for the thread's messages: close some, "
                    "or raise the limit of open files");
      }
      if (!waiting_.empty()) Signal();
    }
    return descriptor_;
  }

  // The thread has ended: nothing will be delivered, and what messages hold may hold this queue.
  void End() {
    std::deque<Numbered> dropped;
    const std::lock_guard lock(mutex_);
    ended_ = true;
    any_waiting_.store(false, std::memory_order_release);
    dropped.swap(waiting_);
  }

 private:
  struct Numbered {
    std::uint64_t number;
    Message message;
  };

  std::uint64_t LastWaiting() {
    const std::lock_guard lock(mutex_);
    return waiting_.empty() ? 0 : waiting_.back().number;
  }

  Message Take(std::uint64_t last) {
    const std::lock_guard lock(mutex_);
    if (waiting_.empty() || waiting_.front().number > last) return nullptr;
    Message message = std::move(waiting_.front().message);
    waiting_.pop_front();
    if (waiting_.empty()) {
      any_waiting_.store(false, std::memory_order_release);
      Unsignal();
    }
    return message;
  }

  void Signal() {
    if (descriptor_ < 0) return;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(descriptor_, &one, sizeof one);
  }

  void Unsignal() {
    if (descriptor_ < 0) return;
    std::uint64_t count = 0;
    [[maybe_unused]] const auto read = ::read(descriptor_, &count, sizeof count);
  }

  std::mutex mutex_;
  std::condition_variable arrived_;
  std::deque<Numbered> waiting_;
  std::atomic<bool> any_waiting_ = false;  // changed under the mutex only
  std::uint64_t last_number_ = 0;
  int descriptor_ = -1;
  bool ended_ = false;
};

struct QueueOfThread {
  std::shared_ptr<ThreadQueue> queue = std::make_shared<ThreadQueue>();
  QueueOfThread() = default;
  QueueOfThread(const QueueOfThread&) = delete;
  QueueOfThread& operator=(const QueueOfThread&) = delete;
  ~QueueOfThread() { queue->End(); }
};

const std::shared_ptr<ThreadQueue>& ThisThreads() {
  thread_local const QueueOfThread holder;
  return holder.queue;
}

}  // namespace

std::shared_ptr<MessageQueue> MessageQueue::OfThisThread() { return ThisThreads(); }

void DoEvents() { ThisThreads()->Deliver(); }

bool WaitForEvents(std::chrono::milliseconds at_most) {
  ThreadQueue& queue = *ThisThreads();
  queue.Wait(at_most);
  return queue.Deliver();
}

int EventDescriptor() { return ThisThreads()->Descriptor(); }

}  // namespace pstolvane1
