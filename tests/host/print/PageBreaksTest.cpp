// Lines on pages.
#include <gtest/gtest.h>

#include "host/print/PageBreaks.h"

namespace pstolvane1::print {
namespace {

constexpr LineOnPaper kLine{10}, kHead{10, true}, kSpacer{10, false, true};

// "0-2 3-3": the first and the last line of each page.
std::string Broken(
    const std::vector<LineOnPaper>& lines, double room_of_first, double room,
    const std::function<double(std::size_t)>& above = [](std::size_t) { return 0; }) {
  std::string text;
  for (const LinesOfAPage& page : BreakIntoPages(lines, room_of_first, room, above)) {
    text += (text.empty() ? "" : " ") + std::to_string(page.first) + "-" +
            (page.end == page.first ? "" : std::to_string(page.end - 1));
  }
  return text;
}

TEST(PageBreaks, EachPageIsFilledAndTheFirstHasItsOwnRoom) {
  EXPECT_EQ(Broken(std::vector<LineOnPaper>(7, kLine), 20, 35), "0-1 2-4 5-6");
  EXPECT_EQ(Broken(std::vector<LineOnPaper>(2, kLine), 20, 35), "0-1");
}

TEST(PageBreaks, AHeadStandsWithTheNextLine) {
  EXPECT_EQ(Broken({kLine, kLine, kHead, kLine}, 30, 30), "0-1 2-3");
  EXPECT_EQ(Broken({kLine, kHead, kHead, kLine}, 30, 30), "0-0 1-3");
}

TEST(PageBreaks, LinesThatBelongTogetherOverMoreThanAPageBreak) {
  EXPECT_EQ(Broken(std::vector<LineOnPaper>(5, kHead), 20, 20), "0-1 2-3 4-4");
}

TEST(PageBreaks, ASpacerIsNotTheFirstOfAPage) {
  EXPECT_EQ(Broken({kLine, kLine, kSpacer, kLine}, 20, 20), "0-1 3-3");
  EXPECT_EQ(Broken({kLine, kLine, kSpacer}, 20, 20), "0-1");
}

TEST(PageBreaks, ALineThatIsHigherThanAPageHasOneOfItsOwn) {
  EXPECT_EQ(Broken({kLine, {100}, kLine}, 20, 20), "0-0 1-1 2-2");
}

TEST(PageBreaks, WhatStandsAboveTheFirstLineOfALaterPageTakesRoom) {
  const auto above = [](std::size_t line) { return line == 3 ? 15.0 : 0.0; };
  EXPECT_EQ(Broken(std::vector<LineOnPaper>(7, kLine), 30, 30, above), "0-2 3-3 4-6");
}

TEST(PageBreaks, NoLinesAreOnePage) { EXPECT_EQ(Broken({}, 20, 20), "0-"); }

}  // namespace
}  // namespace pstolvane1::print
