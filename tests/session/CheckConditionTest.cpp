// What a host developer is told of a condition.
#include <gtest/gtest.h>
#include <string>

#include "session/CheckCondition.h"

namespace pstolvane1 {
namespace {

TEST(CheckCondition, PassesWhatAReportTakes) {
  for (const char* const text :
       {"Desr1.Desr_id < 80", "DESR1.DATE >= #03/31/2004# and DesrDetails1.QtyDespIn > 0.5",
        "Desr1.Optional = True", "(Desr1.Desr_id = 1 or Desr1.Desr_id = 2)",
        "case when Desr1.Desr_id = 1 or 1 = 1 then 1 else 0 end = 1",
        "Desr1.Prefix like 'a -- or /* %'",
        "Desr1.Desr_id in (select Desr_id from DesrDetails1)"}) {
    EXPECT_EQ(CheckCondition("Desr1, DesrDetails1", text), "") << text;
  }
}

TEST(CheckCondition, TellsWhatIsWrongAndWhere) {
  struct Wrong {
    const char* text;
    const char* told;
  };
  const Wrong kWrong[] = {
      {"1=1 --", "line 1, column 5: a condition or an alias holds the comment sign \"--\""},
      {"1=1\nand /* x */ 2=2",
       "line 2, column 5: a condition or an alias holds the comment sign \"/*\""},
      {"Desr1.Desr_id = 1 or 1 = 1",
       "column 19: an Or outside brackets weakens the conditions that the report joins with this "
       "one: put brackets around the whole"},
  };
  for (const Wrong& wrong : kWrong) EXPECT_EQ(CheckCondition("Desr1", wrong.text), wrong.told);
  EXPECT_EQ(CheckCondition("Desr2", "1=1"), "there is no table \"Desr2\"");
}

TEST(CheckCondition, GivesPlacesOfTheConditionItself) {
  struct Wrong {
    const char* text;
    const char* place;
  };
  const Wrong kWrong[] = {
      {"Desr1.Nothing = 1", "line 1, column 7: "},
      {"1 = 1 and\n  Desr1.Nothing = 1", "line 2, column 9: "},
      {"1 = 1) or (1 = 1", "line 1, column 6: "},
      {"(1 = 1", "line 1, column 7: "},
      {"1 = 1 order by Desr1.Date", "line 1, column 7: "},
      {"1 = 1 union select 2 as two", "line 1, column 7: "},
      {"1 = 1; delete from Desr1", "line 1, column 8: "},
      {"Desr1.Date", "line 1, column "},
      {"", "line 1, column 1: "},
  };
  for (const Wrong& wrong : kWrong) {
    const std::string told = CheckCondition("Desr1", wrong.text);
    EXPECT_TRUE(told.starts_with(wrong.place)) << wrong.text << ": " << told;
  }
}

}  // namespace
}  // namespace pstolvane1
