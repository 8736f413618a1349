// A mutex that serves its waiters in the order in which they arrived.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace pstolvane1 {

// Several fetches that take turns on one engine connection would starve each other on a plain
// mutex, which is mostly given back to the thread that has just released it. Use it with
// std::lock_guard.
class FairMutex {
 public:
  void lock() {
    std::unique_lock guard(mutex_);
    const std::uint64_t ticket = next_++;
    turn_.wait(guard, [&] { return serving_ == ticket; });
  }
  void unlock() {
    {
      const std::lock_guard guard(mutex_);
      ++serving_;
    }
    turn_.notify_all();
  }
  [[nodiscard]] bool try_lock() {
    const std::lock_guard guard(mutex_);
    if (serving_ != next_) return false;
    ++next_;
    return true;
  }

 private:
  std::mutex mutex_;
  std::condition_variable turn_;
  std::uint64_t next_ = 0;
  std::uint64_t serving_ = 0;
};

}  // namespace pstolvane1
