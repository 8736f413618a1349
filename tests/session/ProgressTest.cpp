#include <gtest/gtest.h>

#include "session/Progress.h"
#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

TEST(Progress, AStepWithoutACountIsOne) {
  Progress progress;
  EXPECT_EQ(progress.Step(0, 20), 1);
  EXPECT_EQ(progress.Step(0, 60), 2);
}

TEST(Progress, StopsAtTheCeiling) {
  Progress progress;
  EXPECT_EQ(progress.Step(1, 20), 20);
  EXPECT_EQ(progress.Step(1, 20), 20);
  progress.sngFetchCeiling = 60;
  EXPECT_EQ(progress.Step(4, 60), 35);
  EXPECT_EQ(progress.Step(4, 60), 50);
  EXPECT_EQ(progress.Step(4, 60), 60);
  EXPECT_EQ(progress.Step(4, 60), 60);
}

TEST(Progress, TheNextReportBeginsAtTheCeilingOf20) {
  Progress progress{.sngFetchPercent = 60, .sngFetchCeiling = 20};
  EXPECT_EQ(progress.Step(1000, 20), 20);
  EXPECT_EQ(progress.sngFetchPercent, 20.0F);
}

TEST(Progress, HalvesAreRoundedToTheEvenPercent) {
  Progress progress;
  EXPECT_EQ(progress.Step(8, 20), 2);   // 2.5
  EXPECT_EQ(progress.Step(8, 20), 5);   // 5
  EXPECT_EQ(progress.Step(8, 20), 8);   // 7.5
  EXPECT_EQ(progress.Step(8, 20), 10);  // 10
  EXPECT_EQ(progress.Step(8, 20), 12);  // 12.5
}

TEST(Progress, AddsUpIn32BitFloats) {
  Progress progress{.sngFetchPercent = 0, .sngFetchCeiling = 60};
  for (int row = 0; row < 100; ++row) (void)progress.Step(300, 60);
  float expected = 0;
  for (int row = 0; row < 100; ++row) expected += 0.2F;
  EXPECT_EQ(progress.sngFetchPercent, expected);
  EXPECT_NE(static_cast<double>(progress.sngFetchPercent), 20.0);
}

TEST(Progress, ABelowZeroPercentageIsAnOverflow) {
  Progress progress;
  EXPECT_THROW((void)progress.Step(-1, 20), Error);
}

}  // namespace
}  // namespace pstolvane1
