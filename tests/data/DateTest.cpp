#include "session/data/Date.h"
#include "tests/data/ExpectError.h"

namespace pstolvane1 {
namespace {

std::string IsoOf(double serial) { return Date(serial).ToIso(); }

TEST(Date, CountsDaysFromThirtiethOfDecember1899) {
  EXPECT_EQ(Date::FromYmd(1899, 12, 30).Serial(), 0);
  EXPECT_EQ(Date::FromYmd(1899, 12, 31).Serial(), 1);
  EXPECT_EQ(Date::FromYmd(1900, 1, 1).Serial(), 2);
  EXPECT_EQ(Date::FromYmd(2004, 3, 31).Serial(), 38077);
  EXPECT_EQ(Date::FromYmd(1899, 12, 29).Serial(), -1);
  EXPECT_EQ(Date::FromYmd(100, 1, 1).Serial(), -657434);
  EXPECT_EQ(Date::FromYmd(9999, 12, 31).Serial(), 2958465);
}

TEST(Date, KnowsTheCalendar) {
  EXPECT_EQ(Date::FromYmd(2000, 2, 29).ToIso(), "2000-02-29");
  ExpectError(ErrorNumber::kTypeMismatch, "the calendar has no day 1900-2-29",
              [] { (void)Date::FromYmd(1900, 2, 29); });
  ExpectError(ErrorNumber::kTypeMismatch, "the calendar has no day 2004-13-1",
              [] { (void)Date::FromYmd(2004, 13, 1); });
  ExpectError(ErrorNumber::kTypeMismatch, "the calendar has no day 99-1-1",
              [] { (void)Date::FromYmd(99, 1, 1); });
  ExpectError(ErrorNumber::kTypeMismatch, "the calendar has no day 10000-1-1",
              [] { (void)Date::FromYmd(10000, 1, 1); });
  ExpectError(ErrorNumber::kTypeMismatch, "the calendar has no time 24:0:0",
              [] { (void)Date::FromYmdHms(2004, 1, 1, 24, 0, 0); });
}

TEST(Date, CarriesTheTimeAsAFractionOfTheDay) {
  EXPECT_EQ(Date::FromYmdHms(1900, 1, 1, 6, 0, 0).Serial(), 2.25);
  EXPECT_EQ(Date::FromYmdHms(1899, 12, 29, 6, 0, 0).Serial(), -1.25);
  const Date::Parts parts = Date(-1.25).ToParts();
  EXPECT_EQ(parts.year, 1899);
  EXPECT_EQ(parts.month, 12);
  EXPECT_EQ(parts.day, 29);
  EXPECT_EQ(parts.hour, 6);
  EXPECT_EQ(parts.minute, 0);
  EXPECT_EQ(parts.second, 0);
}

TEST(Date, RoundsTheTimeToTheSecond) {
  EXPECT_EQ(IsoOf(38077 + 50709.4 / 86400), "2004-03-31 14:05:09");
  EXPECT_EQ(IsoOf(38077 + 86399.6 / 86400), "2004-04-01");
  EXPECT_EQ(IsoOf(-1 - 86399.6 / 86400), "1899-12-30");
  EXPECT_FALSE(Date(38077 + 0.4 / 86400).HasTime());
  EXPECT_FALSE(Date(38077 + 86399.6 / 86400).HasTime());
  EXPECT_TRUE(Date(38077 + 1.0 / 86400).HasTime());
}

TEST(Date, WritesTheTimeOnlyIfThereIsOne) {
  EXPECT_EQ(IsoOf(38077), "2004-03-31");
  EXPECT_EQ(IsoOf(38077.5), "2004-03-31 12:00:00");
  EXPECT_EQ(Date::FromYmd(987, 6, 5).ToIso(), "0987-06-05");
}

TEST(Date, OfASerialOutsideTheCalendarHasNoParts) {
  EXPECT_EQ(IsoOf(2958465), "9999-12-31");
  ExpectError(ErrorNumber::kOverflow,
              "2958466 days from 30 December 1899 lie outside the years 100 to 9999",
              [] { (void)Date(2958466).ToIso(); });
  ExpectError(ErrorNumber::kOverflow,
              "-657435 days from 30 December 1899 lie outside the years 100 to 9999",
              [] { (void)Date(-657435).ToParts(); });
}

TEST(Date, ReadsIsoText) {
  EXPECT_EQ(Date::FromIso("2004-03-31"), Date(38077));
  EXPECT_EQ(Date::FromIso("2004-03-31 12:00:00"), Date(38077.5));
  EXPECT_EQ(Date::FromIso("2004-03-31T12:00:00"), Date(38077.5));
  EXPECT_EQ(Date::FromIso("1899-12-29 06:00:00"), Date(-1.25));
  EXPECT_EQ(Date::FromIso("2004-03-31 00:00:00.750")->Serial(), 38077 + 0.75 / 86400);
}

TEST(Date, ReadsNothingElse) {
  for (const char* text : {"", "2004", "2004-3-31", "2004-02-30", "31-03-2004", "03/31/2004",
                           "2004-03-31 ", " 2004-03-31", "2004-03-31 14:05", "2004-03-31 24:00:00",
                           "2004-03-31 23:60:00", "2004-03-31 23:59:60", "2004-03-31 12:00:00.",
                           "2004-03-31 12:00:00Z", "2004-03-31x12:00:00", "0099-01-01"}) {
    EXPECT_EQ(Date::FromIso(text), std::nullopt) << text;
  }
}

TEST(Date, IsOrderedByTimeAlsoBefore1900) {
  // 29 December 1899, 06:00 and 18:00: the serial runs against the clock.
  EXPECT_LT(Date(-1.25), Date(-1.75));
  EXPECT_LT(Date(-1.75), Date(0));
  EXPECT_LT(Date(0), Date(0.5));
  EXPECT_EQ(Date(-0.5), Date(0.5));
  EXPECT_LT(Date(-2), Date(-1));
  EXPECT_LT(Date(38077), Date(38077.5));
}

TEST(DateProperty, EveryDayReadsBack) {
  for (int serial = -657434; serial <= 2958465; serial += 97) {
    const Date date(serial);
    const Date::Parts parts = date.ToParts();
    EXPECT_EQ(Date::FromYmd(parts.year, parts.month, parts.day).Serial(), serial);
    EXPECT_EQ(Date::FromIso(date.ToIso()), date);
    const Date evening = Date::FromYmdHms(parts.year, parts.month, parts.day, 23, 59, 59);
    EXPECT_EQ(Date::FromIso(evening.ToIso()), evening);
    EXPECT_LT(date, evening);
  }
}

}  // namespace
}  // namespace pstolvane1
