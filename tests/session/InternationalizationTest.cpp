#include <gtest/gtest.h>

#include "session/data/Error.h"
#include "session/mInternationalization.h"
#include "session/modStolvane1.h"

namespace pstolvane1 {
namespace {

TEST(SqlDateText, IsMonthFirstWithoutTheTime) {
  EXPECT_EQ(SqlDateText(Date::FromYmd(2004, 3, 31)), "03/31/2004");
  EXPECT_EQ(SqlDateText(Date::FromYmdHms(2004, 12, 1, 23, 59, 58)), "12/01/2004");
  EXPECT_EQ(SqlDateText(Date()), "12/30/1899");
}

TEST(DateFromParts, GivesTheDay) {
  EXPECT_EQ(DateFromParts(2, 29, 2004), Date::FromYmd(2004, 2, 29));
}

TEST(DateFromParts, ADayThatTheCalendarDoesNotHaveIsATypeMismatch) {
  try {
    (void)DateFromParts(2, 30, 2004);
    FAIL() << "30 February was read";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kTypeMismatch);
  }
}

TEST(LocaleInfoText, KnowsTheDateSeparatorAndNothingElse) {
  EXPECT_EQ(LocaleInfoText(*Locale::Get("de_DE"), 29), ".");
  EXPECT_EQ(LocaleInfoText(*Locale::Get("en_US"), 29), "/");
  EXPECT_EQ(LocaleInfoText(*Locale::Get("en_US"), 30), "");
}

TEST(DateSeparatorToSlash, ReplacesEverySeparatorAndKeepsTheOrder) {
  EXPECT_EQ(DateSeparatorToSlash("31.03.2004", "."), "31/03/2004");
  EXPECT_EQ(DateSeparatorToSlash("31/03/2004", "/"), "31/03/2004");
  EXPECT_EQ(DateSeparatorToSlash("31.03.2004", ""), "31.03.2004");
}

TEST(ModStolvane1, ThePeriodIsKeptAsDatesAndAsTexts) {
  modStolvane1 module;
  module.SetPeriod(Date::FromYmd(2003, 4, 1), Date::FromYmd(2004, 3, 31));
  EXPECT_EQ(module.dtFromDate, Date::FromYmd(2003, 4, 1));
  EXPECT_EQ(module.dtToDate, Date::FromYmd(2004, 3, 31));
  EXPECT_EQ(module.strFromDateText, "04/01/2003");
  EXPECT_EQ(module.strToDateText, "03/31/2004");
}

}  // namespace
}  // namespace pstolvane1
