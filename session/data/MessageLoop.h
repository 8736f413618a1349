// The apartment thread's message loop: how what happens in the background reaches a session.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "session/data/NeedsCpp20.h"

namespace pstolvane1 {

// The messages that wait for one thread. Every thread that uses rowsets or connections has its own,
// made at first use; other threads post to it, only its own thread takes from it. A poster keeps
// the queue alive, so that posting to a thread that has ended is harmless.
class MessageQueue {
 public:
  using Message = std::function<void()>;

  [[nodiscard]] static std::shared_ptr<MessageQueue> OfThisThread();
  virtual ~MessageQueue() = default;
  virtual void Post(Message message) = 0;
};

// Delivers the messages that wait for the calling thread, in the order of their coming, and returns
// without waiting for more. An exception that a message lets out goes to the caller; the messages
// behind it stay for the next call. A call from inside a message delivers the messages behind that
// one.
void DoEvents();

// Waits until a message comes or the time is over, then delivers as DoEvents does. True if any was
// delivered.
bool WaitForEvents(std::chrono::milliseconds at_most);

// A file descriptor that is readable while messages wait for the calling thread, for a host with an
// event loop of its own. It belongs to the library: poll it, do not read or close it.
[[nodiscard]] int EventDescriptor();

}  // namespace pstolvane1
