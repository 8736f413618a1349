// A sign of life from work that has nothing to show yet.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>

namespace pstolvane1 {

// Beats while threads work: whoever looks at a watch feels it as often as he likes, and once in an
// interval it beats. Shared by the threads of one piece of work, which it must outlive.
class Pulse {
 public:
  // The first beat comes when the work has lasted one interval. beat is called on a thread that
  // works; what it throws is passed over.
  Pulse(std::chrono::milliseconds interval, std::function<void()> beat);
  Pulse(const Pulse&) = delete;
  Pulse& operator=(const Pulse&) = delete;

  // While it lives, the calling thread works for the pulse; for none with a null pointer.
  class AtWork {
   public:
    explicit AtWork(Pulse* pulse) noexcept;
    ~AtWork();
    AtWork(const AtWork&) = delete;
    AtWork& operator=(const AtWork&) = delete;

   private:
    Pulse* const around_;
  };

  // That of the calling thread beats if it is time; nothing where there is none.
  static void Feel() noexcept;

 private:
  using Clock = std::chrono::steady_clock;

  void Beat() noexcept;

  const std::chrono::milliseconds interval_;
  const std::function<void()> beat_;
  std::atomic<Clock::time_point> next_;
};

}  // namespace pstolvane1
