// What a thread does with rowsets: it can be abandoned from any thread.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

#include "session/data/CancelSignal.h"

namespace pstolvane1 {

// One for each thread that uses rowsets; whoever holds it may use it from any thread, also when its
// own has ended.
class ThreadWork {
 public:
  [[nodiscard]] static const std::shared_ptr<ThreadWork>& OfThisThread();

  // From now on the thread works for this owner, a session; nobody at first. The owner is only
  // compared, never looked into.
  void For(const void* owner) noexcept { owner_ = owner; }
  // Ends the work in hand if it is done for this owner. Work that begins later is not touched.
  void Abandon(const void* owner) noexcept {
    if (owner_ == owner) signal_.Raise();
  }

 private:
  friend class WorkInHand;
  std::atomic<const void*> owner_{nullptr};
  CancelSignal signal_;
};

// One piece of the calling thread's work, for as long as the object lives: a report, or a sort or
// an export, which is a part of the report around it or stands alone.
class WorkInHand {
 public:
  enum class Kind : std::uint8_t {
    kReport,  // begins anew, also inside another report's handler
    kPart,    // is abandoned with the work that it is a part of
  };

  explicit WorkInHand(Kind kind = Kind::kPart);
  ~WorkInHand();
  WorkInHand(const WorkInHand&) = delete;
  WorkInHand& operator=(const WorkInHand&) = delete;

  [[nodiscard]] bool Abandoned() const noexcept { return work_.signal_.Count() != since_; }
  // Error -2147217900 once it is abandoned. Cheap enough for every row.
  void Check() const {
    if (Abandoned()) RaiseAbandoned();
  }
  // The same for the innermost piece of work of this thread; nothing without one.
  static void CheckInnermost();

 private:
  [[noreturn]] static void RaiseAbandoned();

  ThreadWork& work_;
  const WorkInHand* const around_;
  const std::uint64_t since_;
};

}  // namespace pstolvane1
