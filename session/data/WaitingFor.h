// What a thread waits for on an engine ends with the fetch that it waits for.
#pragma once

#include "session/data/FetchStop.h"

namespace pstolvane1 {

// While it lives, what the calling thread waits for on an engine is cancelled once the fetch is
// stopped, also when that was before the waiting began. The innermost counts; the fetch must
// outlive it.
class WaitingFor {
 public:
  explicit WaitingFor(const FetchStop& fetch) noexcept : around_(Innermost()) {
    Innermost() = &fetch;
  }
  ~WaitingFor() { Innermost() = around_; }
  WaitingFor(const WaitingFor&) = delete;
  WaitingFor& operator=(const WaitingFor&) = delete;

  // Whether that of the calling thread is over; false where there is none.
  [[nodiscard]] static bool Over() noexcept {
    const FetchStop* const fetch = Innermost();
    return fetch != nullptr && fetch->Stopped();
  }

 private:
  static const FetchStop*& Innermost() noexcept;

  const FetchStop* const around_;
};

}  // namespace pstolvane1
