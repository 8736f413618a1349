// How a fetch that runs on another thread is told to end.
#pragma once

#include <memory>
#include <mutex>
#include <utility>

#include "session/data/Error.h"
#include "session/data/Provider.h"

namespace pstolvane1 {

// Shared by a fetch and those who may end it; any thread.
class FetchStop {
 public:
  // Ends the statement that runs and refuses those that would follow.
  void Stop() noexcept {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
    if (running_) running_->Cancel();
  }
  [[nodiscard]] bool Stopped() const noexcept {
    const std::lock_guard lock(mutex_);
    return stopped_;
  }
  // Error -2147217900 once it was stopped.
  void Check() const {
    if (Stopped()) throw Error(ErrorNumber::kQueryRefused, "the fetch was cancelled");
  }

  // While it lives, the cursor is what Stop ends.
  class Running {
   public:
    Running(FetchStop& stop, std::shared_ptr<Cursor> cursor) : stop_(stop) {
      const std::lock_guard lock(stop_.mutex_);
      stop_.running_ = std::move(cursor);
      if (stop_.stopped_) stop_.running_->Cancel();
    }
    ~Running() {
      std::shared_ptr<Cursor> cursor;  // goes behind the lock: what a cursor lets go may take time
      const std::lock_guard lock(stop_.mutex_);
      cursor.swap(stop_.running_);
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

   private:
    FetchStop& stop_;
  };

 private:
  mutable std::mutex mutex_;
  bool stopped_ = false;
  std::shared_ptr<Cursor> running_;
};

}  // namespace pstolvane1
