// One state of the books, taken when it is first read.
#pragma once

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

#include "session/data/Error.h"
#include "session/data/Provider.h"
#include "session/data/WaitingFor.h"

namespace pstolvane1 {

// Shared by the rowsets that are to see the same state, from any thread. Taking a state may wait
// for a lock on the books, so that it is left to the thread that reads: an asynchronous open does
// not wait. The state is let go with the last of its owners.
class BooksState {
 public:
  BooksState(std::shared_ptr<Provider> provider, std::chrono::milliseconds time_limit)
      : provider_(std::move(provider)), time_limit_(time_limit) {}

  // The first call takes the state; those that come meanwhile wait for it. When it fails, it fails
  // for all with the same error: each would only wait as long again. Where the first one's fetch
  // was stopped, the next takes it.
  [[nodiscard]] std::shared_ptr<Snapshot> Take(const FetchStop& fetch) {
    const std::lock_guard lock(mutex_);
    if (failure_) throw Error(*failure_);
    if (!snapshot_) {
      try {
        const WaitingFor waiting(fetch);
        snapshot_ = provider_->TakeSnapshot(time_limit_);
      } catch (const Error& failure) {
        if (fetch.Stopped()) throw;
        failure_ = failure;
        failed_ = true;
        throw;
      }
    }
    return snapshot_;
  }
  [[nodiscard]] bool ReadsSideBySide() const noexcept { return provider_->ReadsSideBySide(); }
  // Whether taking it has failed. Does not wait.
  [[nodiscard]] bool Failed() const noexcept { return failed_; }

 private:
  std::mutex mutex_;
  std::shared_ptr<Provider> provider_;
  std::chrono::milliseconds time_limit_;
  std::shared_ptr<Snapshot> snapshot_;
  std::optional<Error> failure_;
  std::atomic<bool> failed_ = false;
};

}  // namespace pstolvane1
