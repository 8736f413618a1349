#include "session/data/Background.h"

#include <chrono>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

#include "session/data/Error.h"

namespace pstolvane1 {

void RunBeside(std::function<void()> work) {
  try {
    std::thread(std::move(work)).detach();
  } catch (const std::system_error& error) {
    throw Error(ErrorNumber::kQueryRefused,
                std::string("no thread can be started to work in the background: ") + error.what());
  }
}

void PostOnceThereIsRoom(MessageQueue& queue, const MessageQueue::Message& message) noexcept {
  while (true) {
    try {
      return queue.Post(message);
    } catch (const std::bad_alloc&) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }
}

}  // namespace pstolvane1
