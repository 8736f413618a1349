#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>

#include "session/data/Pulse.h"

namespace pstolvane1 {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;

TEST(Pulse, IsFeltOnlyByAThreadThatWorksForIt) {
  int beats = 0;
  Pulse pulse(milliseconds(0), [&] { ++beats; });
  Pulse::Feel();
  EXPECT_EQ(beats, 0);
  {
    const Pulse::AtWork at_work(&pulse);
    Pulse::Feel();
    EXPECT_EQ(beats, 1);
    std::thread([] { Pulse::Feel(); }).join();
    EXPECT_EQ(beats, 1);
    const Pulse::AtWork for_nobody(nullptr);
    Pulse::Feel();
    EXPECT_EQ(beats, 1);
  }
  Pulse::Feel();
  EXPECT_EQ(beats, 1);
}

TEST(Pulse, DoesNotBeatBeforeItsIntervalIsOver) {
  int beats = 0;
  Pulse pulse(hours(24), [&] { ++beats; });
  const Pulse::AtWork at_work(&pulse);
  for (int i = 0; i < 1000; ++i) Pulse::Feel();
  EXPECT_EQ(beats, 0);
}

TEST(Pulse, PassesOverWhatABeatThrows) {
  int beats = 0;
  Pulse pulse(milliseconds(0), [&] {
    ++beats;
    throw std::runtime_error("no room");
  });
  const Pulse::AtWork at_work(&pulse);
  Pulse::Feel();
  Pulse::Feel();
  EXPECT_EQ(beats, 2);
}

}  // namespace
}  // namespace pstolvane1
