#include "session/engine/Watch.h"

#include "session/data/Pulse.h"
#include "session/data/WaitingFor.h"

namespace pstolvane1 {

Watch::Watch(std::chrono::milliseconds limit,
             std::array<const CancelSignal*, kSignals> signals) noexcept
    : limit_(limit), seen_{} {
  for (std::size_t i = 0; i < kSignals; ++i) {
    seen_[i] = {signals[i], signals[i] != nullptr ? signals[i]->Count() : 0};
  }
}

Stop Watch::Check() const noexcept {
  Pulse::Feel();
  if (WaitingFor::Over()) return Stop::kCancelled;
  for (const Seen& seen : seen_) {
    if (seen.signal != nullptr && seen.signal->Count() != seen.count) return Stop::kCancelled;
  }
  if (limit_.count() > 0 && used_ + (Clock::now() - started_) > limit_) return Stop::kTimeLimit;
  return Stop::kNone;
}

Watch Watch::Within(std::chrono::milliseconds limit) const noexcept {
  const Clock::time_point now = Clock::now();
  Watch part = *this;
  if (limit.count() <= 0) return part;
  if (limit_.count() > 0 && limit_ - (used_ + (now - started_)) <= limit) return part;
  part.limit_ = limit;
  part.started_ = now;
  part.used_ = {};
  return part;
}

}  // namespace pstolvane1
