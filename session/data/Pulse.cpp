#include "session/data/Pulse.h"

#include <utility>

namespace pstolvane1 {
namespace {

thread_local Pulse* of_this_thread = nullptr;

}  // namespace

Pulse::Pulse(std::chrono::milliseconds interval, std::function<void()> beat)
    : interval_(interval), beat_(std::move(beat)), next_(Clock::now() + interval) {}

Pulse::AtWork::AtWork(Pulse* pulse) noexcept : around_(of_this_thread) { of_this_thread = pulse; }

Pulse::AtWork::~AtWork() { of_this_thread = around_; }

void Pulse::Feel() noexcept {
  if (of_this_thread != nullptr) of_this_thread->Beat();
}

// Of several threads that find it time, one beats.
void Pulse::Beat() noexcept {
  const Clock::time_point now = Clock::now();
  Clock::time_point next = next_.load(std::memory_order_relaxed);
  if (now < next || !next_.compare_exchange_strong(next, now + interval_)) return;
  try {
    beat_();
  } catch (...) {
  }
}

}  // namespace pstolvane1
