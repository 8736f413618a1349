// Dates that stand as texts.
#include <gtest/gtest.h>

#include "session/sql/DateText.h"

namespace pstolvane1::sql {
namespace {

std::string Read(std::string_view text) { return ReadDateText(text).value_or("none"); }

TEST(DateText, MonthComesFirst) {
  EXPECT_EQ(Read("03/31/2004"), "2004-03-31");
  EXPECT_EQ(Read("04/03/2004"), "2004-04-03");
  EXPECT_EQ(Read("4/3/2004"), "2004-04-03");
  EXPECT_EQ(Read("31/03/2004"), "none");
}

TEST(DateText, IsoForms) {
  EXPECT_EQ(Read("2004-03-31"), "2004-03-31");
  EXPECT_EQ(Read("2004-3-1"), "2004-03-01");
  EXPECT_EQ(Read("20040331"), "2004-03-31");
  EXPECT_EQ(Read("2004-03-31T14:05:09"), "2004-03-31 14:05:09");
}

TEST(DateText, BlanksAroundDoNotCount) {
  EXPECT_EQ(Read("  03/31/2004 "), "2004-03-31");
  EXPECT_EQ(Read("03/31/2004  14:05 "), "2004-03-31 14:05:00");
}

TEST(DateText, TimesOfDay) {
  EXPECT_EQ(Read("03/31/2004 00:00:00"), "2004-03-31");
  EXPECT_EQ(Read("03/31/2004 00:00:00.000"), "2004-03-31");
  EXPECT_EQ(Read("03/31/2004 2:05 PM"), "2004-03-31 14:05:00");
  EXPECT_EQ(Read("03/31/2004 12:00am"), "2004-03-31");
  EXPECT_EQ(Read("03/31/2004 12:30 pm"), "2004-03-31 12:30:00");
  EXPECT_EQ(Read("2004-03-31 23:59:59.250"), "2004-03-31 23:59:59.25");
  for (const char* wrong : {"03/31/2004 24:00", "03/31/2004 10:60", "03/31/2004 13:00 PM",
                            "03/31/2004 0:30 AM", "03/31/2004 10", "03/31/2004 10:5", "2004-03-31T",
                            "03/31/2004 10:05:", "03/31/2004 10:05:09.", "03/31/2004 10:05 XM"}) {
    EXPECT_EQ(Read(wrong), "none") << wrong;
  }
}

TEST(DateText, DaysThatTheCalendarDoesNotHave) {
  EXPECT_EQ(Read("02/29/2004"), "2004-02-29");
  EXPECT_EQ(Read("02/29/2000"), "2000-02-29");
  for (const char* wrong : {"02/29/2003", "02/29/1900", "04/31/2004", "13/01/2004", "00/10/2004",
                            "01/00/2004", "01/01/0099", "20041301"}) {
    EXPECT_EQ(Read(wrong), "none") << wrong;
  }
  EXPECT_EQ(Read("12/31/9999"), "9999-12-31");
}

TEST(DateText, AnEmptyTextIsTheFirstDayOf1900) {
  EXPECT_EQ(Read(""), "1900-01-01");
  EXPECT_EQ(Read("   "), "1900-01-01");
}

TEST(DateText, EverythingElseIsNone) {
  for (const char* wrong : {"yesterday", "2004", "03/31", "03/31/04", "03-31-2004", "2004/03/31",
                            "03/31/2004x", "#03/31/2004#", "2004-03", "200403311"}) {
    EXPECT_EQ(Read(wrong), "none") << wrong;
  }
}

}  // namespace
}  // namespace pstolvane1::sql
