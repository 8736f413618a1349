#include <gtest/gtest.h>
#include <limits>

#include "session/data/Error.h"
#include "session/rowset/DisplayText.h"
#include "tests/rowset/India.h"

namespace pstolvane1 {
namespace {

TEST(FormatQuantityText, GivesTheNumberInTheLocalesStyle) {
  EXPECT_EQ(FormatQuantityText(India(), 1234567.891), "12,34,567.89");
  EXPECT_EQ(FormatQuantityText(India(), 0), "0.00");
  EXPECT_EQ(FormatQuantityText(India(), -2.5F), "-2.50");
  EXPECT_EQ(FormatQuantityText(India(), Currency::FromText("3.125")), "3.13");
}

TEST(FormatQuantityText, NullIsAnError) {
  try {
    (void)FormatQuantityText(India(), Null);
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kInvalidUseOfNull);
  }
}

TEST(FormatCurrencyText, KeepsZeroAndFifteenDigits) {
  EXPECT_EQ(FormatCurrencyText(India(), 0), "₹0.00");
  EXPECT_EQ(FormatCurrencyText(India(), Currency::FromText("922337203685477.5807")),
            "₹92,23,37,20,36,85,478.00");
  EXPECT_THROW((void)FormatCurrencyText(India(), Null), Error);
}

TEST(FormatCurrencyOrBlank, AZeroIsBlank) {
  EXPECT_EQ(FormatCurrencyOrBlank(India(), 0), "");
  EXPECT_EQ(FormatCurrencyOrBlank(India(), Currency()), "");
  EXPECT_EQ(FormatCurrencyOrBlank(India(), Currency::FromText("1500")), "₹1,500.00");
}

TEST(FormatCurrencyOrBlank, WhateverIsNoAmountIsBlank) {
  EXPECT_EQ(FormatCurrencyOrBlank(India(), Null), "");
  EXPECT_EQ(FormatCurrencyOrBlank(India(), "no amount"), "");
  EXPECT_EQ(FormatCurrencyOrBlank(India(), Variant()), "");
  EXPECT_EQ(FormatCurrencyOrBlank(India(), std::numeric_limits<double>::infinity()), "");
}

TEST(FormatDateText, IsTheLongOrTheGeneralDate) {
  const Date day = Date::FromYmd(2004, 3, 31);
  EXPECT_EQ(FormatDateText(India(), day, false), India().FormatGeneralDate(day));
  EXPECT_EQ(FormatDateText(India(), day, true), India().FormatLongDate(day));
  EXPECT_NE(FormatDateText(India(), day, false), FormatDateText(India(), day, true));
}

TEST(JoinDocumentNumber, JoinsThePartsThatAreNotEmpty) {
  EXPECT_EQ(JoinDocumentNumber("A", "12", "", "/"), "A/12");
  EXPECT_EQ(JoinDocumentNumber("", "12", "X", "/"), "12/X");
  EXPECT_EQ(JoinDocumentNumber("A", "12", "X", "/"), "A/12/X");
  EXPECT_EQ(JoinDocumentNumber("A", "", "X", "-"), "A-X");
  EXPECT_EQ(JoinDocumentNumber("", "12", "", "/"), "12");
  EXPECT_EQ(JoinDocumentNumber("", "", "", "/"), "");
  EXPECT_EQ(JoinDocumentNumber("A", "12", "X", ""), "A12X");
}

}  // namespace
}  // namespace pstolvane1
