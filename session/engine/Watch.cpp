#include "session/engine/Watch.h"

namespace pstolvane1 {

Watch::Watch(std::chrono::milliseconds limit,
             std::array<const CancelSignal*, kSignals> signals) noexcept
    : limit_(limit), seen_{} {
  for (std::size_t i = 0; i < kSignals; ++i) {
    seen_[i] = {signals[i], signals[i] != nullptr ? signals[i]->Count() : 0};
  }
}

Stop Watch::Check() const noexcept {
  for (const Seen& seen : seen_) {
    if (seen.signal != nullptr && seen.signal->Count() != seen.count) return Stop::kCancelled;
  }
  if (limit_.count() > 0 && used_ + (Clock::now() - started_) > limit_) return Stop::kTimeLimit;
  return Stop::kNone;
}

}  // namespace pstolvane1
