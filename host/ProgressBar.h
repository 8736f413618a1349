// A progress bar on standard error, for work that takes over a second.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace pstolvane1::host {

// Draws only on a terminal, and only once the work has run for a second; from then on every second,
// with the seconds that it has taken, so that work which has nothing to tell is seen to go on. The
// line is wiped when the bar goes.
class ProgressBar {
 public:
  // What is being done until the first Show.
  explicit ProgressBar(std::string_view doing);
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  // done from 0 to 1, and what is being done.
  void Show(double done, std::string_view doing);

 private:
  using Clock = std::chrono::steady_clock;

  void Tick();
  void Draw();  // the mutex is held

  const Clock::time_point start_;
  std::mutex mutex_;
  std::condition_variable end_;
  double done_ = 0;
  std::string doing_;
  bool ended_ = false;
  bool visible_ = false;
  Clock::time_point drawn_;
  std::thread ticking_;  // none where there is no terminal
};

}  // namespace pstolvane1::host
