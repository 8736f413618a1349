// How what is read is told to end, from any thread.
#pragma once

#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "session/data/Error.h"
#include "session/data/Provider.h"

namespace pstolvane1 {

// Shared by a fetch and those who may end it; any thread.
class FetchStop {
 public:
  // Ends the statements that run and refuses those that would follow.
  void Stop() noexcept {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
    for (const auto& cursor : running_) cursor->Cancel();
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
    Running(FetchStop& stop, std::shared_ptr<Cursor> cursor)
        : stop_(stop), cursor_(std::move(cursor)) {
      const std::lock_guard lock(stop_.mutex_);
      stop_.running_.push_back(cursor_);
      if (stop_.stopped_) cursor_->Cancel();
    }
    // The cursor goes behind the lock: what it lets go may take time.
    ~Running() {
      const std::lock_guard lock(stop_.mutex_);
      std::erase(stop_.running_, cursor_);
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

   private:
    FetchStop& stop_;
    const std::shared_ptr<Cursor> cursor_;
  };

 private:
  mutable std::mutex mutex_;
  bool stopped_ = false;
  std::vector<std::shared_ptr<Cursor>> running_;
};

// What is read on one connection; any thread.
class FetchStops {
 public:
  // Until it ends, the fetch is stopped with the others; so is its wait for a lock.
  void Add(const std::shared_ptr<FetchStop>& fetch, const std::shared_ptr<Provider>& provider) {
    const std::lock_guard lock(mutex_);
    std::erase_if(fetches_, [](const Fetch& one) { return one.stop.expired(); });
    fetches_.push_back({fetch, provider});
  }
  void StopAll() noexcept {
    std::vector<Fetch> fetches;
    {
      const std::lock_guard lock(mutex_);
      fetches.swap(fetches_);
    }
    for (const Fetch& fetch : fetches) {
      const auto stop = fetch.stop.lock();
      if (!stop) continue;
      stop->Stop();
      if (const auto provider = fetch.provider.lock()) provider->Cancel();
    }
  }

 private:
  struct Fetch {
    std::weak_ptr<FetchStop> stop;
    std::weak_ptr<Provider> provider;
  };
  std::mutex mutex_;
  std::vector<Fetch> fetches_;
};

}  // namespace pstolvane1
