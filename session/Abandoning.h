// How a session's report is abandoned from any thread.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "session/data/CancelSignal.h"
#include "session/data/FetchStop.h"
#include "session/data/MessageLoop.h"
#include "session/data/ThreadWork.h"

namespace pstolvane1 {

// Made on the session's thread. The report that is asked for is the one in hand until the next is.
class Abandoning {
 public:
  // Abandons the report in hand, from any thread: what it reads is stopped, the thread's work for
  // it is ended, and drop is done on the session's thread, at once if that is the calling one.
  void Abandon(std::function<void()> drop);

  // On the session's thread.
  // From now on reports are read on this connection.
  void ReadFrom(const std::shared_ptr<FetchStops>& connection);
  // A report is asked for; those before it are not in hand any more. Gives the mark that it bears.
  std::uint64_t Begin() noexcept;
  // The report that bears the mark was abandoned.
  [[nodiscard]] bool Has(std::uint64_t mark) const noexcept { return signal_.Count() != mark; }

 private:
  CancelSignal signal_;
  const std::shared_ptr<ThreadWork> work_ = ThreadWork::OfThisThread();
  const std::shared_ptr<MessageQueue> queue_ = MessageQueue::OfThisThread();
  const std::thread::id thread_ = std::this_thread::get_id();
  std::mutex mutex_;
  std::shared_ptr<FetchStops> fetches_;
};

}  // namespace pstolvane1
