// A progress bar on standard error, for work that takes over a second.
#pragma once

#include <chrono>
#include <string_view>

namespace pstolvane1::host {

// Draws only on a terminal, and only once the work has run for a second. The line is wiped when the
// bar goes.
class ProgressBar {
 public:
  ProgressBar();
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  // done from 0 to 1, and what is being done.
  void Show(double done, std::string_view doing);

 private:
  std::chrono::steady_clock::time_point start_;
  std::chrono::steady_clock::time_point drawn_;
  bool terminal_;
  bool visible_ = false;
};

}  // namespace pstolvane1::host
