#include <gtest/gtest.h>

#include "session/data/Error.h"
#include "session/rowset/DatePattern.h"
#include "session/rowset/Locale.h"

namespace pstolvane1 {
namespace {

TEST(LocaleDates, TheGeneralDateIsShortWithAFourDigitYear) {
  const Date date = Date::FromYmd(2004, 3, 31);
  EXPECT_EQ(Locale::Get("en_IN")->FormatGeneralDate(date), "31/03/2004");
  EXPECT_EQ(Locale::Get("en_US")->FormatGeneralDate(date), "3/31/2004");
  EXPECT_EQ(Locale::Get("en_GB")->FormatGeneralDate(date), "31/03/2004");
  EXPECT_EQ(Locale::Get("de_DE")->FormatGeneralDate(date), "31.03.2004");
  EXPECT_EQ(Locale::Get("fr_FR")->FormatGeneralDate(date), "31/03/2004");
}

TEST(LocaleDates, TheTimeShowsOnlyIfThereIsOne) {
  const Date date = Date::FromYmdHms(2004, 3, 31, 14, 5, 9);
  EXPECT_EQ(Locale::Get("en_IN")->FormatGeneralDate(date), "31/03/2004 2:05:09\u202fpm");
  EXPECT_EQ(Locale::Get("de_DE")->FormatGeneralDate(date), "31.03.2004 14:05:09");
  const Date midnight_past = Date::FromYmdHms(2004, 3, 31, 0, 5, 0);
  EXPECT_EQ(Locale::Get("en_US")->FormatGeneralDate(midnight_past),
            "3/31/2004 12:05:00\u202f"
            "AM");
}

TEST(LocaleDates, TheLongDateIsTheFullOne) {
  const Date date = Date::FromYmd(2004, 3, 31);
  EXPECT_EQ(Locale::Get("en_IN")->FormatLongDate(date), "Wednesday, 31 March, 2004");
  EXPECT_EQ(Locale::Get("en_US")->FormatLongDate(date), "Wednesday, March 31, 2004");
  EXPECT_EQ(Locale::Get("de_DE")->FormatLongDate(date), "Mittwoch, 31. März 2004");
  EXPECT_EQ(Locale::Get("fr_FR")->FormatLongDate(date), "mercredi 31 mars 2004");
}

TEST(LocaleDates, MonthNamesStandAlone) {
  EXPECT_EQ(Locale::Get("en_IN")->MonthName(4), "April");
  EXPECT_EQ(Locale::Get("ru_RU")->MonthName(3), "март");  // "марта" inside a date
  EXPECT_THROW(static_cast<void>(Locale::Get("en_IN")->MonthName(13)), Error);
  EXPECT_THROW(static_cast<void>(Locale::Get("en_IN")->MonthName(0)), Error);
}

TEST(LocaleDates, TheSeparatorIsThatOfTheShortDate) {
  EXPECT_EQ(Locale::Get("en_IN")->DateSeparator(), "/");
  EXPECT_EQ(Locale::Get("de_DE")->DateSeparator(), ".");
  EXPECT_EQ(Locale::Get("sv_SE")->DateSeparator(), "-");
}

TEST(LocaleDates, AShortDateIsReadInTheLocalesOrder) {
  EXPECT_EQ(Locale::Get("en_IN")->ParseShortDate("03/04/2004"), Date::FromYmd(2004, 4, 3));
  EXPECT_EQ(Locale::Get("en_US")->ParseShortDate("03/04/2004"), Date::FromYmd(2004, 3, 4));
  EXPECT_EQ(Locale::Get("sv_SE")->ParseShortDate("2004-03-04"), Date::FromYmd(2004, 3, 4));
  EXPECT_EQ(Locale::Get("en_IN")->ParseShortDate("3-4-04"), Date::FromYmd(2004, 4, 3));
  EXPECT_EQ(Locale::Get("en_IN")->ParseShortDate("3/4/30"), Date::FromYmd(1930, 4, 3));
}

TEST(LocaleDates, WhatIsNoShortDateIsATypeMismatch) {
  for (const char* text : {"", "31/04/2004", "1/2", "1/2/3/4", "12/13/2004", "1/1/20040"}) {
    try {
      static_cast<void>(Locale::Get("en_IN")->ParseShortDate(text));
      ADD_FAILURE() << text;
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kTypeMismatch) << text;
    }
  }
}

TEST(LocaleDates, QuotedTextOfAPatternIsWrittenAsItStands) {
  DateNames names;
  for (int digit = 0; digit < 10; ++digit) names.digits[digit] = std::to_string(digit);
  const DatePattern pattern("d 'de' ''M'' 'o''clock' H");
  EXPECT_EQ(pattern.Format({2004, 3, 31, 7, 0, 0}, names), "31 de '3' o'clock 7");
}

TEST(LocaleDates, APatternWithAnUnknownFieldIsRefused) {
  EXPECT_THROW(static_cast<void>(DatePattern("dd QQQ")), Error);
}

}  // namespace
}  // namespace pstolvane1
