#include "host/ProgressBar.h"

#include <algorithm>
#include <cstddef>
#include <iostream>

#include "host/Terminal.h"

namespace pstolvane1::host {
namespace {

constexpr double kCells = 30;
constexpr std::chrono::seconds kBetweenTicks{1};
constexpr std::chrono::milliseconds kBetweenDrawings{100};

}  // namespace

ProgressBar::ProgressBar(std::string_view doing) : start_(Clock::now()), doing_(doing) {
  if (StandardErrorIsTerminal()) ticking_ = std::thread([this] { Tick(); });
}

ProgressBar::~ProgressBar() {
  if (!ticking_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
  }
  end_.notify_one();
  ticking_.join();
  if (visible_) std::cerr << "\r\x1b[K" << std::flush;
}

void ProgressBar::Show(double done, std::string_view doing) {
  if (!ticking_.joinable()) return;
  const std::lock_guard lock(mutex_);
  done_ = done;
  doing_ = doing;
  if (visible_ && Clock::now() - drawn_ >= kBetweenDrawings) Draw();
}

void ProgressBar::Tick() {
  std::unique_lock lock(mutex_);
  while (!end_.wait_for(lock, kBetweenTicks, [this] { return ended_; })) Draw();
}

void ProgressBar::Draw() {
  drawn_ = Clock::now();
  visible_ = true;
  const auto filled = static_cast<std::size_t>(std::clamp(done_, 0.0, 1.0) * kCells);
  std::string bar;
  for (std::size_t i = 0; i < static_cast<std::size_t>(kCells); ++i) bar += i < filled ? "█" : "░";
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(drawn_ - start_).count();
  std::cerr << '\r' << bar << ' ' << doing_ << ", " << seconds << " s\x1b[K" << std::flush;
}

}  // namespace pstolvane1::host
