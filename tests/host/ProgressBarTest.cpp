#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <string>
#include <thread>
#include <unistd.h>

#include "host/ProgressBar.h"

namespace pstolvane1::host {
namespace {

constexpr std::chrono::milliseconds kOverASecond{1050};

// Standard error is a terminal, or a pipe, while it lives.
class StandardError {
 public:
  explicit StandardError(bool terminal) : before_(dup(STDERR_FILENO)) {
    int ends[2] = {-1, -1};
    const int failed =
        terminal ? openpty(&ends[0], &ends[1], nullptr, nullptr, nullptr) : pipe(ends);
    EXPECT_EQ(failed, 0);
    read_ = ends[0];
    dup2(ends[1], STDERR_FILENO);
    close(ends[1]);
  }
  ~StandardError() {
    Restore();
    close(read_);
  }
  StandardError(const StandardError&) = delete;
  StandardError& operator=(const StandardError&) = delete;

  // What was written to it.
  std::string Text() {
    fcntl(read_, F_SETFL, O_NONBLOCK);
    std::string text;
    char bytes[4096];
    for (ssize_t count = 0; (count = read(read_, bytes, sizeof bytes)) > 0;) {
      text.append(bytes, static_cast<std::size_t>(count));
    }
    return text;
  }

 private:
  void Restore() const {
    dup2(before_, STDERR_FILENO);
    close(before_);
  }
  int before_;
  int read_ = -1;
};

std::string Cells(int full) {
  std::string bar = "\r";
  for (int cell = 0; cell < 30; ++cell) bar += cell < full ? "█" : "░";
  return bar + " ";
}

// What is written until the text is there, or for ten seconds.
std::string WaitFor(const std::string& text, StandardError& error) {
  std::string written;
  for (int tries = 0; tries < 1000 && written.find(text) == std::string::npos; ++tries) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    written += error.Text();
  }
  return written;
}

TEST(ProgressBar, IsShownOnceTheWorkHasTakenASecondAndWipedAtTheEnd) {
  StandardError error(true);
  {
    const auto began = std::chrono::steady_clock::now();
    ProgressBar bar("FetchingData");
    EXPECT_NE(WaitFor(" s\x1b[K", error).find(Cells(0) + "FetchingData, "), std::string::npos)
        << "work that tells nothing";
    EXPECT_GE(std::chrono::steady_clock::now() - began, std::chrono::seconds(1));
    std::this_thread::sleep_for(std::chrono::milliseconds(110));
    bar.Show(0.5, "movements");
    EXPECT_NE(WaitFor(" s\x1b[K", error).find(Cells(15) + "movements, "), std::string::npos);
    std::this_thread::sleep_for(std::chrono::milliseconds(110));
    bar.Show(1.5, "lines");
    EXPECT_NE(WaitFor("lines", error).find(Cells(30) + "lines, "), std::string::npos);
  }
  EXPECT_TRUE(error.Text().ends_with("\r\x1b[K"));
}

TEST(ProgressBar, OfShortWorkLeavesNoTrace) {
  StandardError error(true);
  { ProgressBar("movements").Show(0.5, "movements"); }
  EXPECT_EQ(error.Text(), "");
}

TEST(ProgressBar, IsNotShownWhereThereIsNoTerminal) {
  StandardError error(false);
  {
    ProgressBar bar("movements");
    std::this_thread::sleep_for(kOverASecond);
    bar.Show(0.5, "movements");
  }
  EXPECT_EQ(error.Text(), "");
}

}  // namespace
}  // namespace pstolvane1::host
