#include "python/BooksThread.h"

#include <new>
#include <unistd.h>
#include <utility>

namespace pstolvane1::python {

class BooksThread::Task {
 public:
  explicit Task(Work work_to_do) : work(std::move(work_to_do)) {}

  // All of it with the mutex held, but the work, which the thread alone does.
  Work work;
  bool ended = false;
  std::vector<Event> events;
  std::int32_t number = 0;
  std::string text;
};

BooksThread::BooksThread() : process_(getpid()), thread_([this] { Run(); }) {}

// Elsewhere the thread that waits here will never wake, and to end the wait would wait for it.
std::shared_ptr<BooksThread> BooksThread::Start() {
  return {new BooksThread(), [](BooksThread* books) {
            if (!books->IsElsewhere()) delete books;
          }};
}

BooksThread::~BooksThread() {
  {
    const std::lock_guard lock(mutex_);
    stops_ = true;
  }
  work_comes_.notify_one();
  thread_.join();
}

bool BooksThread::IsElsewhere() const { return process_ != getpid(); }

std::shared_ptr<BooksThread::Task> BooksThread::Begin(Work work) {
  auto task = std::make_shared<Task>(std::move(work));
  {
    const std::lock_guard lock(mutex_);
    waiting_.push_back(task);
  }
  work_comes_.notify_one();
  return task;
}

void BooksThread::Post(Work work) noexcept {
  if (IsElsewhere()) return;
  try {
    static_cast<void>(Begin(std::move(work)));
  } catch (const std::bad_alloc&) {  // what it would have let go stays
  }
}

bool BooksThread::Wait(Task& task, std::chrono::milliseconds at_most) {
  std::unique_lock lock(mutex_);
  something_ends_.wait_for(lock, at_most, [&] { return task.ended || !task.events.empty(); });
  return task.ended;
}

std::vector<Event> BooksThread::TakeEvents(Task& task) {
  const std::lock_guard lock(mutex_);
  return std::exchange(task.events, {});
}

void BooksThread::Drop(Task& task) {
  const std::lock_guard lock(mutex_);
  if (running_.get() == &task) {
    pst_session_abandon(session_);
  } else {
    std::erase_if(waiting_, [&](const auto& one) { return one.get() == &task; });
    task.ended = true;
  }
}

void BooksThread::Abandon() {
  const std::lock_guard lock(mutex_);
  pst_session_abandon(session_);
}

std::int32_t BooksThread::ErrorOf(const Task& task, std::string& text) {
  text = task.text;
  return task.number;
}

void BooksThread::Close() {
  std::unique_lock lock(mutex_);
  pst_session* const closed = std::exchange(session_, nullptr);
  lock.unlock();
  pst_session_free(closed);
}

void BooksThread::Tell(Event event) {
  {
    const std::lock_guard lock(mutex_);
    running_->events.push_back(std::move(event));
  }
  something_ends_.notify_all();
}

void BooksThread::Run() {
  pst_session* const made = pst_session_new();
  const pst_events events{
      .context = this,
      .on_connect =
          [](void* books, const char* error_text) {
            static_cast<BooksThread*>(books)->Tell({.name = "connect", .text = error_text});
          },
      .fetch_progress =
          [](void* books, std::uint8_t percent, const char* message) {
            static_cast<BooksThread*>(books)->Tell(
                {.name = "progress", .number = percent, .text = message});
          },
      .fetch_complete =
          [](void* books, pst_rowset* rowset, std::int32_t any_count) {
            static_cast<BooksThread*>(books)->Tell(
                {.name = "complete", .number = any_count, .rowset = rowset});
          }};
  pst_session_events(made, &events);
  std::unique_lock lock(mutex_);
  session_ = made;
  for (;;) {
    work_comes_.wait(lock, [&] { return stops_ || !waiting_.empty(); });
    if (waiting_.empty()) break;
    running_ = std::move(waiting_.front());
    waiting_.pop_front();
    lock.unlock();
    Do(*running_);
    lock.lock();
    running_->ended = true;
    running_.reset();
    something_ends_.notify_all();
  }
  lock.unlock();
  Close();
}

void BooksThread::Do(Task& task) noexcept {
  constexpr std::int32_t kOutOfMemory = 7;
  try {
    task.number = task.work(session_);
    if (task.number != pst_ok) task.text = pst_error_text();
  } catch (const std::bad_alloc&) {
    task.number = kOutOfMemory;
  }
}

}  // namespace pstolvane1::python
