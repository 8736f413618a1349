#include "session/data/ThreadWork.h"

#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

const WorkInHand*& Innermost() {
  thread_local const WorkInHand* innermost = nullptr;
  return innermost;
}

}  // namespace

const std::shared_ptr<ThreadWork>& ThreadWork::OfThisThread() {
  thread_local const std::shared_ptr<ThreadWork> work = std::make_shared<ThreadWork>();
  return work;
}

WorkInHand::WorkInHand(Kind kind)
    : work_(*ThreadWork::OfThisThread()),
      around_(Innermost()),
      since_(kind == Kind::kPart && around_ != nullptr ? around_->since_ : work_.signal_.Count()) {
  Innermost() = this;
}

WorkInHand::~WorkInHand() { Innermost() = around_; }

void WorkInHand::CheckInnermost() {
  if (const WorkInHand* innermost = Innermost()) innermost->Check();
}

void WorkInHand::RaiseAbandoned() {
  throw Error(ErrorNumber::kQueryRefused, "the report was abandoned");
}

}  // namespace pstolvane1
