// Work beside the apartment thread.
#pragma once

#include <functional>

#include "session/data/MessageLoop.h"

namespace pstolvane1 {

// Runs the work on a thread of its own and does not wait for it, here or later: an engine may be
// inside a call that nothing can end, and who closes a rowset is not made to wait for it. The work
// therefore owns all that it touches and leaves its result with a message. It must not throw.
// Error -2147217900 when the system has no thread left.
void RunBeside(std::function<void()> work);

// Tells that such work is at its end: who waits for it would wait for ever otherwise. Where there
// is no memory for the message, it goes when there is some again.
void PostOnceThereIsRoom(MessageQueue& queue, const MessageQueue::Message& message) noexcept;

}  // namespace pstolvane1
