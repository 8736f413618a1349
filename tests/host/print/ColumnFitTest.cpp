// Columns on paper.
#include <gtest/gtest.h>

#include "host/print/ColumnFit.h"
#include "session/data/Error.h"

namespace pstolvane1::print {
namespace {

// Room for 500 points upright and 800 across.
constexpr Paper kPaper{"test", 520, 820};
constexpr double kMargin = 10;

ColumnFit Fitted(const std::vector<ColumnNeed>& needs) {
  return FitColumns(needs, kPaper, kMargin);
}

// A first column and figures, so many and so wide.
std::vector<ColumnNeed> Figures(std::size_t columns, double width) {
  return {columns, ColumnNeed{width, width}};
}

TEST(ColumnFit, WhatIsNarrowStandsUprightInLargeLetters) {
  const ColumnFit fit = Fitted(Figures(4, 10));
  EXPECT_FALSE(fit.across);
  EXPECT_DOUBLE_EQ(fit.size, 9);
  EXPECT_EQ(fit.widths, std::vector<double>(4, 90));
  EXPECT_EQ(fit.sheets, (std::vector<std::vector<std::size_t>>{{0, 1, 2, 3}}));
}

TEST(ColumnFit, LettersShrinkALittleBeforePaperIsTurned) {
  EXPECT_FALSE(Fitted(Figures(4, 14)).across);  // 59.3 in all with the gaps: 8 points fill 474
  EXPECT_DOUBLE_EQ(Fitted(Figures(4, 14)).size, 8);
  EXPECT_TRUE(Fitted(Figures(4, 16)).across);
  EXPECT_DOUBLE_EQ(Fitted(Figures(4, 16)).size, 9);
}

TEST(ColumnFit, TextsBreakAndFiguresDoNot) {
  // 9 points across hold 88.9: what the figures and two gaps leave is 28.7 for the text.
  const ColumnFit fit = Fitted({{200, 10}, {29, 29}, {29, 29}});
  EXPECT_TRUE(fit.across);
  EXPECT_DOUBLE_EQ(fit.size, 9);
  ASSERT_EQ(fit.sheets.size(), 1U);
  EXPECT_NEAR(fit.widths[0], 9 * (800.0 / 9 - 2 * 29 - 2 * 1.1), 1e-6);
  EXPECT_DOUBLE_EQ(fit.widths[1], 9 * 29);
  EXPECT_NEAR(fit.WidthOf(fit.sheets[0]), 800, 1e-6);
}

TEST(ColumnFit, TheWidestTextGivesWayFirst) {
  const ColumnFit fit = Fitted({{20, 5}, {200, 5}, {20, 5}});
  EXPECT_DOUBLE_EQ(fit.widths[0], 9 * 20);
  EXPECT_DOUBLE_EQ(fit.widths[2], 9 * 20);
  EXPECT_LT(fit.widths[1], 9 * 60);
}

TEST(ColumnFit, WideStatementsGoOnSheetsSideBySideWithTheFirstColumnOnEach) {
  const ColumnFit fit = Fitted(Figures(21, 10));  // 232 in all: more than 114.3, the room at 7
  EXPECT_TRUE(fit.across);
  ASSERT_EQ(fit.sheets.size(), 3U);
  std::vector<std::size_t> behind_the_first;
  for (const auto& sheet : fit.sheets) {
    EXPECT_EQ(sheet.front(), 0U);
    EXPECT_LE(fit.WidthOf(sheet), 800);
    EXPECT_GE(sheet.size(), 7U);  // no sheet is left nearly empty
    behind_the_first.insert(behind_the_first.end(), sheet.begin() + 1, sheet.end());
  }
  std::vector<std::size_t> all;
  for (std::size_t i = 1; i < 21; ++i) all.push_back(i);
  EXPECT_EQ(behind_the_first, all);
}

TEST(ColumnFit, AUnitStandsOnTheSheetOfItsQuantity) {
  std::vector<ColumnNeed> needs = Figures(21, 10);
  for (std::size_t i = 2; i < needs.size(); i += 2) needs[i].with_last = true;
  const ColumnFit fit = Fitted(needs);
  ASSERT_EQ(fit.sheets.size(), 3U);
  for (const auto& sheet : fit.sheets) {
    EXPECT_EQ(sheet.size() % 2, 1U);
    EXPECT_LE(fit.WidthOf(sheet), 800);
  }
}

TEST(ColumnFit, AColumnThatIsWiderThanTheSheetStillHasOne) {
  const ColumnFit fit = Fitted(Figures(3, 150));
  EXPECT_EQ(fit.sheets, (std::vector<std::vector<std::size_t>>{{0, 1}, {0, 2}}));
}

TEST(ColumnFit, NoColumnsAreOneEmptySheet) {
  const ColumnFit fit = Fitted({});
  ASSERT_EQ(fit.sheets.size(), 1U);
  EXPECT_EQ(fit.WidthOf(fit.sheets[0]), 0);
}

TEST(Paper, HasItsNamesInAnyCase) {
  EXPECT_NEAR(PaperNamed("a4").width / 72 * 25.4, 210, 0.01);
  EXPECT_NEAR(PaperNamed("A4").height / 72 * 25.4, 297, 0.01);
  EXPECT_EQ(PaperNamed("LETTER").width, 612);
  try {
    (void)PaperNamed("A7");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Description(), "paper is A4, A3, Letter or Legal, not \"A7\"");
  }
}

}  // namespace
}  // namespace pstolvane1::print
