#include "session/Abandoning.h"

#include <utility>

namespace pstolvane1 {

// The mark comes first: who sees the thread's work ended, or a fetch stopped, sees the mark as
// well.
void Abandoning::Abandon(std::function<void()> drop) {
  signal_.Raise();
  work_->Abandon(this);
  std::shared_ptr<FetchStops> fetches;
  {
    const std::lock_guard lock(mutex_);
    fetches = fetches_;
  }
  if (fetches) fetches->StopAll();
  if (std::this_thread::get_id() == thread_) {
    drop();
  } else {
    queue_->Post(std::move(drop));
  }
}

void Abandoning::ReadFrom(const std::shared_ptr<FetchStops>& connection) {
  const std::lock_guard lock(mutex_);
  fetches_ = connection;
}

std::uint64_t Abandoning::Begin() noexcept {
  work_->For(this);
  return signal_.Count();
}

}  // namespace pstolvane1
