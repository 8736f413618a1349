// The thread that a session of the library belongs to, with all that comes of it.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <sys/types.h>
#include <thread>
#include <vector>

#include "automation/pstolvane1_c.h"

namespace pstolvane1::python {

// An event of the session.
struct Event {
  const char* name;  // "connect", "progress", "complete"
  std::int32_t number = 0;
  std::string text = {};
  pst_rowset* rowset = nullptr;  // of "complete"; whoever takes the event frees it
};

// Python calls from any thread and lets go of things on any thread, and the library takes both from
// one alone. So each session has a thread here, to which work is handed, piece after piece. It
// never touches Python.
class BooksThread {
 public:
  // 0 or the number of an error, whose text this thread then has.
  using Work = std::function<std::int32_t(pst_session* session)>;
  // Work that somebody waits for.
  class Task;

  // Starts the thread and makes its session. std::system_error when there can be no thread. Whoever
  // lets go of it last waits for the thread, so that is never the thread itself.
  [[nodiscard]] static std::shared_ptr<BooksThread> Start();
  ~BooksThread();
  BooksThread(const BooksThread&) = delete;
  BooksThread& operator=(const BooksThread&) = delete;

  // From any thread.
  // A process that was forked off does not have the thread: it can only let go of it.
  [[nodiscard]] bool IsElsewhere() const;
  [[nodiscard]] std::shared_ptr<Task> Begin(Work work);
  // The same without anybody who waits. Nothing elsewhere.
  void Post(Work work) noexcept;
  // Waits until the task has ended or there are events of it. Gives whether it has ended.
  bool Wait(Task& task, std::chrono::milliseconds at_most);
  [[nodiscard]] std::vector<Event> TakeEvents(Task& task);
  // Lets a task that has not begun go, and abandons the report of the one that runs. That may come
  // before the report does: drop it again until it has ended.
  void Drop(Task& task);
  // Drops the report in hand.
  void Abandon();
  // The result of a task that has ended: 0, or the error's number and text.
  [[nodiscard]] static std::int32_t ErrorOf(const Task& task, std::string& text);

  // As work on the thread: frees the session. What is asked of it later is error 91; its rowsets
  // stay.
  void Close();

 private:
  BooksThread();
  void Run();
  void Do(Task& task) noexcept;
  void Tell(Event event);

  const pid_t process_;
  std::mutex mutex_;
  std::condition_variable work_comes_, something_ends_;
  std::deque<std::shared_ptr<Task>> waiting_;
  std::shared_ptr<Task> running_;
  bool stops_ = false;
  pst_session* session_ = nullptr;  // changed by the thread alone, with the mutex held
  std::thread thread_;
};

}  // namespace pstolvane1::python
