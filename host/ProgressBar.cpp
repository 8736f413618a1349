#include "host/ProgressBar.h"

#include <algorithm>
#include <cstddef>
#include <iostream>
#include <string>

#include "host/Terminal.h"

namespace pstolvane1::host {
namespace {

constexpr double kCells = 30;
constexpr std::chrono::seconds kSilence{1};
constexpr std::chrono::milliseconds kBetweenDrawings{100};

}  // namespace

ProgressBar::ProgressBar()
    : start_(std::chrono::steady_clock::now()), terminal_(StandardErrorIsTerminal()) {}

ProgressBar::~ProgressBar() {
  if (visible_) std::cerr << "\r\x1b[K" << std::flush;
}

void ProgressBar::Show(double done, std::string_view doing) {
  if (!terminal_) return;
  const auto now = std::chrono::steady_clock::now();
  if (now - start_ < kSilence || now - drawn_ < kBetweenDrawings) return;
  drawn_ = now;
  visible_ = true;
  const auto filled = static_cast<std::size_t>(std::clamp(done, 0.0, 1.0) * kCells);
  std::string bar;
  for (std::size_t i = 0; i < static_cast<std::size_t>(kCells); ++i) bar += i < filled ? "█" : "░";
  std::cerr << '\r' << bar << ' ' << doing << "\x1b[K" << std::flush;
}

}  // namespace pstolvane1::host
