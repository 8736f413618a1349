// When work on an engine has to end before it is done: it was cancelled, or its time is used up.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>

#include "session/data/CancelSignal.h"

namespace pstolvane1 {

enum class Stop { kNone, kCancelled, kTimeLimit };

// Watches over one piece of work, such as a statement, from when it is made. The time limit counts
// the time in which the engine works on it (between Start and Pause), not that in which nobody asks
// for more; 0 or less is no limit. Used by one thread at a time; the signals must outlive it.
class Watch {
 public:
  using Clock = std::chrono::steady_clock;

  static constexpr std::size_t kSignals = 3;

  explicit Watch(std::chrono::milliseconds limit,
                 std::array<const CancelSignal*, kSignals> signals = {}) noexcept;

  void Start() noexcept { started_ = Clock::now(); }
  void Pause() noexcept { used_ += Clock::now() - started_; }
  [[nodiscard]] Stop Check() const noexcept;  // while started
  // Over a part of the same work that is done from now on without a pause, and for which no more
  // than this time is given.
  [[nodiscard]] Watch Within(std::chrono::milliseconds limit) const noexcept;  // while started
  [[nodiscard]] std::chrono::milliseconds Limit() const noexcept { return limit_; }

 private:
  struct Seen {
    const CancelSignal* signal;
    std::uint64_t count;
  };
  std::chrono::milliseconds limit_;
  std::array<Seen, kSignals> seen_;
  Clock::time_point started_{};
  Clock::duration used_{};
};

}  // namespace pstolvane1
