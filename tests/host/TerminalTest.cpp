// What a person at a terminal sees, and a pipe does not.
#include <cstdlib>

#include "HostProgram.h"

namespace pstolvane1::host::test {
namespace {

constexpr const char* kPager = "sed 's/^/paged: /'";

class Terminal : public SampleHost {
 protected:
  static Words Ledgers() {
    return {"run", "LedgersByCode", "--books", Books(), "bytYearno=1", "sCode=2,41"};
  }
};

// What LedgersByCode gives for the banks and the cash of the sample books: two titles, what was
// asked for and an empty line, the heads and their rule, and two ledgers.
constexpr std::size_t kColumns = 40;
constexpr std::size_t kLines = 8;

TEST_F(Terminal, ColoursAreOnATerminalOnly) {
  const Finished piped = Stolvane(Ledgers());
  EXPECT_EQ(piped.out.find('\x1b'), std::string::npos);
  const Finished seen = StolvaneOnTerminal(Ledgers(), 24, 80, kPager);
  EXPECT_EQ(seen.status, 0);
  EXPECT_TRUE(seen.out.starts_with("\x1b[1mLedgers\x1b[0m\r\nsample\r\n")) << seen.out;
  EXPECT_NE(seen.out.find("\x1b[1mKey  Name\x1b[0m\r\n\x1b[2m───"), std::string::npos) << seen.out;
  std::string plain = seen.out;
  for (const std::string_view sign : {"\x1b[0m", "\x1b[1m", "\x1b[2m", "\r"}) {
    for (std::size_t at = 0; (at = plain.find(sign)) != std::string::npos;) {
      plain.erase(at, sign.size());
    }
  }
  EXPECT_EQ(plain, piped.out);
}

TEST_F(Terminal, ATableThatFitsIsNotPagedAndOneThatDoesNotIs) {
  const auto paged = [](std::size_t lines, std::size_t columns) {
    const Finished seen = StolvaneOnTerminal(Ledgers(), static_cast<unsigned short>(lines),
                                             static_cast<unsigned short>(columns), kPager);
    EXPECT_EQ(seen.status, 0);
    EXPECT_NE(seen.out.find("Sahakari Bank"), std::string::npos) << seen.out;
    return seen.out.find("paged: ") != std::string::npos;
  };
  EXPECT_FALSE(paged(24, 80));
  // The prompt takes a line of its own.
  EXPECT_FALSE(paged(kLines + 1, 80));
  EXPECT_TRUE(paged(kLines, 80));
  // The signs of colours take no place.
  EXPECT_FALSE(paged(24, kColumns));
  EXPECT_TRUE(paged(24, kColumns - 1));
}

// "less" shows signs beyond ASCII as codes where the locale is C, unless it is told.
TEST_F(Terminal, ThePagerIsToldThatTheTextIsUtf8) {
  const Finished seen = StolvaneOnTerminal(Ledgers(), 3, 80, "echo charset=$LESSCHARSET; cat");
  EXPECT_NE(seen.out.find("charset=utf-8"), std::string::npos) << seen.out;
}

TEST_F(Terminal, WhatIsNoReportIsNotPaged) {
  const Finished seen = StolvaneOnTerminal({"books", "check", Books()}, 1, 10, kPager);
  EXPECT_EQ(seen.out, "Nothing is missing or odd.\r\n");
}

TEST_F(Terminal, WithoutAPagerTheTableIsWrittenAllTheSame) {
  const Finished seen = StolvaneOnTerminal(Ledgers(), 3, 80, "no-such-pager 2>/dev/null");
  EXPECT_EQ(seen.status, 0);
  EXPECT_NE(seen.out.find("Overdraft A/c"), std::string::npos) << seen.out;
}

TEST_F(Terminal, WhereNoPagerIsInstalledTheTableIsWrittenWithoutAWord) {
  const std::string path = std::getenv("PATH");
  setenv("PATH", folder.Path().c_str(), 1);
  const Finished seen = StolvaneOnTerminal(Ledgers(), 3, 80, "");
  setenv("PATH", path.c_str(), 1);
  EXPECT_EQ(seen.status, 0);
  EXPECT_TRUE(seen.out.starts_with("\x1b[1mLedgers")) << seen.out;
  EXPECT_NE(seen.out.find("Overdraft A/c"), std::string::npos) << seen.out;
}

TEST_F(Terminal, APagerThatIsLeftEarlyIsNoFailure) {
  const Finished seen = StolvaneOnTerminal(Ledgers(), 3, 80, "head -n 1");
  EXPECT_EQ(seen.status, 0);
  EXPECT_EQ(seen.out, "\x1b[1mLedgers\x1b[0m\r\n");
}

TEST_F(Terminal, AFileIsNeitherPagedNorColoured) {
  Words words = Ledgers();
  words.insert(words.end(), {"--out", folder.File("report.txt")});
  const Finished seen = StolvaneOnTerminal(words, 3, 20, kPager);
  EXPECT_EQ(seen.out, "");
  EXPECT_EQ(books::test::Content(folder.File("report.txt")), Stolvane(Ledgers()).out);
}

}  // namespace
}  // namespace pstolvane1::host::test
