#include <gtest/gtest.h>

#include "valuation/Months.h"

namespace pstolvane1 {
namespace {

StockPeriod Period(const char* from, const char* to) {
  return {*Date::FromIso(from), *Date::FromIso(to)};
}

std::vector<std::string> TextsOf(const StockPeriod& period) {
  std::vector<std::string> texts;
  for (const CalendarMonth& month : MonthsOf(period)) {
    texts.push_back(MonthText(std::to_string(month.Key()), month, period));
  }
  return texts;
}

using Texts = std::vector<std::string>;

TEST(Months, PartsOfTheFirstAndTheLastMonthAreTold) {
  EXPECT_EQ(TextsOf(Period("2004-01-15", "2004-03-10")),
            (Texts{"200401 (15 - 31)", "200402", "200403 (1 - 10)"}));
}

TEST(Months, DaysOfOneMonth) {
  EXPECT_EQ(TextsOf(Period("2004-03-05", "2004-03-20")), (Texts{"200403 (5 - 20)"}));
  EXPECT_EQ(TextsOf(Period("2004-03-01", "2004-03-20")), (Texts{"200403 (1 - 20)"}));
  EXPECT_EQ(TextsOf(Period("2004-03-05", "2004-03-31")), (Texts{"200403 (5 - 31)"}));
}

TEST(Months, AWholeMonthHasNoLabel) {
  EXPECT_EQ(TextsOf(Period("2004-02-01", "2004-02-29")), (Texts{"200402"}));
  EXPECT_EQ(TextsOf(Period("2003-02-01", "2003-02-28")), (Texts{"200302"}));
  EXPECT_EQ(TextsOf(Period("2004-02-01", "2004-02-28")), (Texts{"200402 (1 - 28)"}));
  EXPECT_EQ(TextsOf(Period("2004-02-01", "2004-03-31")), (Texts{"200402", "200403"}));
}

TEST(Months, APeriodThatEndsOnTheFirstHasNoOpeningBracket) {
  EXPECT_EQ(TextsOf(Period("2004-02-01", "2004-03-01")), (Texts{"200402", "200403 1)"}));
}

TEST(Months, DecemberIsFollowedByJanuary) {
  EXPECT_EQ(TextsOf(Period("2003-12-01", "2004-01-31")), (Texts{"200312", "200401"}));
  EXPECT_EQ(TextsOf(Period("2003-11-01", "2003-12-31")), (Texts{"200311", "200312"}));
}

TEST(Months, TheSameMonthOfTwoYearsIsLabelledByItsYear) {
  EXPECT_EQ(TextsOf(Period("2003-03-10", "2004-03-20")).front(), "200303 (10 - 31)");
  EXPECT_EQ(TextsOf(Period("2003-03-10", "2004-03-20")).back(), "200403 (1 - 20)");
  EXPECT_EQ(TextsOf(Period("2003-03-10", "2004-03-20")).size(), 13U);
}

TEST(Months, APeriodThatEndsBeforeItBeginsHasNoneUnlessBothLieInOneMonth) {
  EXPECT_TRUE(TextsOf(Period("2004-03-01", "2004-02-28")).empty());
  EXPECT_EQ(TextsOf(Period("2004-03-20", "2004-03-05")), (Texts{"200403 (20 - 5)"}));
}

TEST(Months, AHundredYears) {
  EXPECT_EQ(MonthsOf(Period("1950-01-01", "2049-12-31")).size(), 1200U);
}

TEST(Months, PlaceOfADay) {
  const std::vector<CalendarMonth> months = MonthsOf(Period("2003-11-10", "2004-01-31"));
  EXPECT_EQ(PlaceOfMonth(months, *Date::FromIso("2003-01-01")), 0U);
  EXPECT_EQ(PlaceOfMonth(months, *Date::FromIso("2003-12-31")), 1U);
  EXPECT_EQ(PlaceOfMonth(months, *Date::FromIso("2004-01-01")), 2U);
  EXPECT_EQ(PlaceOfMonth(months, *Date::FromIso("2004-02-01")), 3U);
}

}  // namespace
}  // namespace pstolvane1
