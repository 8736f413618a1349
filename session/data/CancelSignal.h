// How work is told from another thread to end.
#pragma once

#include <atomic>
#include <cstdint>

namespace pstolvane1 {

// Raised from any thread, at any time; ends the work that began before it, not what begins after.
// Who sees that it was raised sees also what was written before it was.
class CancelSignal {
 public:
  void Raise() noexcept { count_.fetch_add(1, std::memory_order_acq_rel); }
  [[nodiscard]] std::uint64_t Count() const noexcept {
    return count_.load(std::memory_order_acquire);
  }

 private:
  std::atomic<std::uint64_t> count_{0};
};

}  // namespace pstolvane1
