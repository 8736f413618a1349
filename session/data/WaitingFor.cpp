#include "session/data/WaitingFor.h"

namespace pstolvane1 {

const FetchStop*& WaitingFor::Innermost() noexcept {
  thread_local const FetchStop* innermost = nullptr;
  return innermost;
}

}  // namespace pstolvane1
