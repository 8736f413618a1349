#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

#include "session/engine/sqlite/Decimal.h"
#include "session/engine/sqlite/Functions.h"
#include "session/sql/SqliteFunctions.h"
#include "tests/engine/TestBooks.h"

namespace pstolvane1::sqlite {
namespace {

using testing::ElementsAre;

class Functions : public testing::Test {
 protected:
  // "integer 3", "real 0.5", "text abc", "null", or the error without what was being done.
  std::string Value(const std::string& expression) {
    std::string value;
    const std::string error = ErrorOf([&] {
      value = Lines(*snapshot_, "text V: SELECT typeof(e) || coalesce(' ' || e, '') FROM (SELECT " +
                                    expression + " AS e)")
                  .at(0);
    });
    if (error == "no error") return value;
    constexpr std::string_view kDoing = "while reading the rows: ";
    std::string short_error = error;
    if (const std::size_t at = error.find(kDoing); at != std::string::npos) {
      short_error.erase(at, kDoing.size());
    }
    return short_error;
  }
  struct Case {
    std::string expression;
    const char* value;
  };
  void Expect(const std::vector<Case>& cases) {
    for (const Case& each : cases) EXPECT_EQ(Value(each.expression), each.value) << each.expression;
  }

  const TestBooks books_{
      "CREATE TABLE t (k INTEGER, m DECIMAL(19,4), s VARCHAR(40), n INTEGER);"
      "INSERT INTO t VALUES (1, 0.1, 'Bolt', 5), (1, 0.2, 'bolt  ', 5), (1, NULL, 'BOLT', NULL),"
      "  (2, 10, 'Nut', 7), (3, NULL, NULL, NULL), (4, 0.5, 'x', 9), (4, 0.5, 'y', 9);"};
  const std::shared_ptr<SqliteProvider> provider_ = OpenPlain(books_.Path());
  const std::shared_ptr<Snapshot> snapshot_ = provider_->TakeSnapshot(kNoLimit);
};

TEST_F(Functions, AreAllThereAndGiveNullForNull) {
  for (const auto& function : sql::kSqliteFunctions) {
    std::string call = std::string(function.name) + "(NULL";
    for (int i = 1; i < function.arity; ++i) call += ", 1";
    EXPECT_EQ(Value(call + ")"), "null") << call;
  }
}

TEST_F(Functions, MoneyHasFourPlaces) {
  Expect({{"pst_money(1)", "integer 1"},
          {"pst_money(922337203685477)", "integer 922337203685477"},
          {"pst_money(922337203685478)", "6 922337203685478 is out of range for money"},
          {"pst_money(0.1 + 0.2)", "real 0.3"},
          {"pst_money(2.00005)", "real 2.0"},
          {"pst_money(2.00015)", "real 2.0002"},
          {"pst_money(-2.00015)", "real -2.0002"},
          {"pst_money('x')", "13 \"x\" is not a number"}});
  EXPECT_THAT(Value("pst_money(1e15)"), testing::StartsWith("6 "));
}

TEST_F(Functions, RoundingIsDecidedOnTheDigitsThatAreSeen) {
  Expect({{"pst_round(2.675, 2)", "real 2.68"},
          {"pst_round(-2.675, 2)", "real -2.68"},
          {"pst_round(2.5, 0)", "real 3.0"},
          {"pst_round(1.005, 2)", "real 1.01"},
          {"pst_round(0.285, 2)", "real 0.29"},
          {"pst_round(9.995, 2)", "real 10.0"},
          {"pst_round(0.05, 1)", "real 0.1"},
          {"pst_round(0.049999, 1)", "real 0.0"},
          {"pst_round(0.5, 0)", "real 1.0"},
          {"pst_round(1234.5678, -2)", "real 1200.0"},
          {"pst_round(1250, -2)", "integer 1300"},
          {"pst_round(-1250, -2)", "integer -1300"},
          {"pst_round(1249, -2)", "integer 1200"},
          {"pst_round(7, -30)", "integer 0"},
          {"pst_round(9223372036854775807, -1)",
           "6 a rounded number is out of range for a 64-bit whole number"},
          {"pst_round(50.0, -2)", "real 100.0"},
          {"pst_round(49.0, -2)", "real 0.0"},
          {"pst_round(1234, 2)", "integer 1234"},
          {"pst_round(1e20, 2)", "real 1.0e+20"},
          {"pst_round(0.0, 2)", "real 0.0"},
          {"pst_round('x', 2)", "13 \"x\" is not a number"}});
}

TEST_F(Functions, DecimalsKeepTheirDigits) {
  Expect({{"pst_decimal(12.345, 5, 2)", "real 12.35"},
          {"pst_decimal(12, 4, 2)", "integer 12"},
          {"pst_decimal(999.99, 5, 2)", "real 999.99"},
          {"pst_decimal(-999.996, 5, 2)",
           "6 -999.996 is out of range for a decimal of 3 digits before the point"},
          {"pst_decimal(1000, 5, 2)",
           "6 1000 is out of range for a decimal of 3 digits before the point"}});
}

TEST_F(Functions, WholeNumbersStayInTheirBits) {
  Expect({{"pst_fits(2147483647, 32)", "integer 2147483647"},
          {"pst_fits(2147483648, 32)", "6 2147483648 is out of range for a 32-bit whole number"},
          {"pst_fits(-2147483649, 32)", "6 -2147483649 is out of range for a 32-bit whole number"},
          {"pst_fits(9223372036854775807, 64)", "integer 9223372036854775807"},
          {"pst_fits(9223372036854775807 + 1, 64)",
           "6 9.223372036854776e+18 is out of range for a 64-bit whole number"},
          {"pst_fits(3.0, 32)", "6 3 is out of range for a 32-bit whole number"},
          {"pst_cut(2.9, 32)", "integer 2"},
          {"pst_cut(-2.9, 32)", "integer -2"},
          {"pst_cut(7, 32)", "integer 7"},
          {"pst_cut(2147483647.9, 32)", "integer 2147483647"},
          {"pst_cut(1e19, 64)", "6 1e+19 is out of range for a 64-bit whole number"},
          {"pst_nearest(2.5, 32)", "integer 3"},
          {"pst_nearest(-2.5, 32)", "integer -3"},
          {"pst_nearest(2.4999, 32)", "integer 2"},
          {"pst_nearest(2147483647.5, 32)",
           "6 2147483648 is out of range for a 32-bit whole number"}});
}

TEST_F(Functions, DivisionCutsTowardZeroAndRefusesZero) {
  Expect({{"pst_div_whole(7, 2, 32)", "integer 3"},
          {"pst_div_whole(-7, 2, 32)", "integer -3"},
          {"pst_div_whole(7, -2, 32)", "integer -3"},
          {"pst_div_whole(7.0, 2, 32)", "integer 3"},
          {"pst_div_whole(7.5, 2, 32)", "13 7.5 is not a whole number"},
          {"pst_div_whole(7, 0, 32)", "11 division by zero"},
          {"pst_div_whole(-2147483648, -1, 32)",
           "6 2147483648 is out of range for a 32-bit whole number"},
          {"pst_div_whole(-9223372036854775807 - 1, -1, 64)",
           "6 a quotient is out of range for a 64-bit whole number"},
          {"pst_mod(7, 3)", "integer 1"},
          {"pst_mod(-7, 3)", "integer -1"},
          {"pst_mod(7, -3)", "integer 1"},
          {"pst_mod(7, 0)", "11 division by zero"},
          {"pst_mod(-9223372036854775807 - 1, -1)", "integer 0"},
          {"pst_div_real(1, 4)", "real 0.25"},
          {"pst_div_real(1, 0)", "11 division by zero"},
          {"pst_div_real(1, -0.0)", "11 division by zero"},
          {"pst_div_real(0, 0)", "11 division by zero"},
          {"pst_div_real(1e300, 1e-300)", "6 a result is out of range for a number"},
          {"pst_div_decimal(10.00, 2, 3.0, 1, 6)", "real 3.333333"},
          {"pst_div_decimal(-10.00, 2, 3.0, 1, 6)", "real -3.333333"},
          {"pst_div_decimal(2, 0, 3, 0, 4)", "real 0.6666"},
          {"pst_div_decimal(0.1, 4, 0.3, 4, 6)", "real 0.333333"},
          {"pst_div_decimal(0, 4, 0.3, 4, 6)", "real 0.0"},
          {"pst_div_decimal(1, 0, 0.004, 2, 6)", "11 division by zero"},
          {"pst_div_decimal(123456789012, 4, 7, 4, 24)", "real 17636684144.5714"},
          {"pst_div_decimal(7, 4, 2, 0, 0)", "real 3.0"},
          {"pst_div_decimal(1e36, 4, 2, 0, 0)",
           "6 a number of a division is out of range for a "
           "decimal"}});
}

TEST_F(Functions, TextsBecomeNumbers) {
  Expect({{"pst_text_whole('  -12 ', 32)", "integer -12"},
          {"pst_text_whole('', 32)", "integer 0"},
          {"pst_text_whole('   ', 32)", "integer 0"},
          {"pst_text_whole('+7', 32)", "integer 7"},
          {"pst_text_whole('2147483648', 32)",
           "6 \"2147483648\" is out of range for a 32-bit whole number"},
          {"pst_text_whole('-2147483648', 32)", "integer -2147483648"},
          {"pst_text_whole('-9223372036854775808', 64)", "integer -9223372036854775808"},
          {"pst_text_whole('9223372036854775808', 64)",
           "6 \"9223372036854775808\" is out of range for a 64-bit whole number"},
          {"pst_text_whole('1.0', 32)", "13 \"1.0\" is not a whole number"},
          {"pst_text_whole('-', 32)", "13 \"-\" is not a whole number"},
          {"pst_text_whole('1 2', 32)", "13 \"1 2\" is not a whole number"},
          {"pst_text_money('1,234.56')", "real 1234.56"},
          {"pst_text_money('12,34,567')", "integer 1234567"},
          {"pst_text_money(' -.5 ')", "real -0.5"},
          {"pst_text_money('5.')", "integer 5"},
          {"pst_text_money('')", "integer 0"},
          {"pst_text_money('0.00005')", "real 0.0001"},
          {"pst_text_money('0.000049')", "integer 0"},
          {"pst_text_money('-0.00005')", "real -0.0001"},
          {"pst_text_money('922337203685477.5807')", "real 922337203685478.0"},
          {"pst_text_money('922337203685477.58075')",
           "6 \"922337203685477.58075\" is out of range for an amount of money"},
          {"pst_text_money('99999999999999999999999999999999999999999999')",
           "6 \"99999999999999999999999999999999999999999999\" is out of range for an amount of "
           "money"},
          {"pst_text_money('1.2,3')", "13 \"1.2,3\" is not an amount of money"},
          {"pst_text_money('1.2.3')", "13 \"1.2.3\" is not an amount of money"},
          {"pst_text_money('.')", "13 \".\" is not an amount of money"},
          {"pst_text_money('1e3')", "13 \"1e3\" is not an amount of money"},
          {"pst_text_decimal('2.345', 2)", "real 2.35"},
          {"pst_text_decimal('-2.345', 2)", "real -2.35"},
          {"pst_text_decimal('2.344999', 2)", "real 2.34"},
          {"pst_text_decimal('9.999', 2)", "real 10.0"},
          {"pst_text_decimal('99', 2)", "real 99.0"},
          {"pst_text_decimal('0.5', 0)", "real 1.0"},
          {"pst_text_decimal('.5', 3)", "real 0.5"},
          {"pst_text_decimal('', 2)", "13 \"\" is not a decimal number"},
          {"pst_text_decimal('1,5', 2)", "13 \"1,5\" is not a decimal number"},
          {"pst_text_real('1.5e3')", "real 1500.0"},
          {"pst_text_real('-.5')", "real -0.5"},
          {"pst_text_real('+2')", "real 2.0"},
          {"pst_text_real('')", "real 0.0"},
          {"pst_text_real('--2')", "13 \"--2\" is not a number"},
          {"pst_text_real('inf')", "13 \"inf\" is not a number"},
          {"pst_text_real('0x10')", "13 \"0x10\" is not a number"},
          {"pst_text_real('1e400')", "6 \"1e400\" is out of range for a number"},
          {"pst_text_flag('TRUE')", "integer 1"},
          {"pst_text_flag(' false ')", "integer 0"},
          {"pst_text_flag('-7')", "integer 1"},
          {"pst_text_flag('0')", "integer 0"},
          {"pst_text_flag('99999999999999999999')", "integer 1"},
          {"pst_text_flag('')", "13 \"\" is not a flag"},
          {"pst_text_flag('yes')", "13 \"yes\" is not a flag"},
          {"pst_text_flag('1-2')", "13 \"1-2\" is not a whole number"}});
}

TEST_F(Functions, NumbersBecomeTexts) {
  Expect({{"pst_whole_text(-12, 3)", "text -12"},
          {"pst_whole_text(-12, 2)", "text *"},
          {"pst_money_text(1234.565, 30)", "text 1234.57"},
          {"pst_money_text(-0.005, 30)", "text -0.01"},
          {"pst_money_text(-0.0049, 30)", "text 0.00"},
          {"pst_money_text(7, 30)", "text 7.00"},
          {"pst_money_text(1234.5, 6)",
           "6 1234.50 is out of range for a text of 6 characters made from money"},
          {"pst_decimal_text(0.5, 3, 30)", "text 0.500"},
          {"pst_decimal_text(-12.34, 2, 30)", "text -12.34"},
          {"pst_decimal_text(7, 0, 30)", "text 7"},
          {"pst_decimal_text(0, 2, 30)", "text 0.00"},
          {"pst_decimal_text(12.34, 2, 4)",
           "6 12.34 is out of range for a text of 4 characters made from a decimal"},
          {"pst_real_text(1234567.0, 30)", "text 1.23457e+006"},
          {"pst_real_text(123456.0, 30)", "text 123456"},
          {"pst_real_text(0.0001, 30)", "text 0.0001"},
          {"pst_real_text(0.00001, 30)", "text 1e-005"},
          {"pst_real_text(1e100, 30)", "text 1e+100"},
          {"pst_real_text(1.10, 30)", "text 1.1"},
          {"pst_real_text(-0.0, 30)", "text 0"},
          {"pst_real_text(123456.0, 5)",
           "6 123456 is out of range for a text of 5 characters made from a number"}});
}

TEST_F(Functions, DatesAreCanonicalTexts) {
  Expect({{"pst_date('2004-03-31')", "text 2004-03-31"},
          {"pst_date('2004-03-31T14:05:09')", "text 2004-03-31 14:05:09"},
          {"pst_date('2004-03-31 14:05')", "text 2004-03-31 14:05:00"},
          {"pst_date('2004-03-31 00:00:00.000')", "text 2004-03-31"},
          {"pst_date('2004-03-31 14:05:09.250')", "text 2004-03-31 14:05:09.25"},
          {"pst_date('2004-02-30')", "13 \"2004-02-30\" is not a date"},
          {"pst_date('1900-02-29')", "13 \"1900-02-29\" is not a date"},
          {"pst_date('2000-02-29')", "text 2000-02-29"},
          {"pst_date('03/31/2004')", "13 \"03/31/2004\" is not a date"},
          {"pst_date('2004-03-31 24:00:00')", "13 \"2004-03-31 24:00:00\" is not a date"},
          {"pst_date('2004-03-31 14:05:09.')", "13 \"2004-03-31 14:05:09.\" is not a date"},
          {"pst_date('2004-03-31 ')", "13 \"2004-03-31 \" is not a date"},
          {"pst_date('0001-01-01')", "13 \"0001-01-01\" is not a date"},
          {"pst_date(38077)", "13 \"38077\" is not a date"},
          {"pst_year('2004-03-31')", "integer 2004"},
          {"pst_month('2004-03-31 10:00')", "integer 3"},
          {"pst_day('2004-03-31')", "integer 31"},
          {"pst_day('31')", "13 \"31\" is not a date"},
          {"pst_text_date('03/31/2004 ')", "text 2004-03-31"},
          {"pst_text_date('20040331')", "text 2004-03-31"},
          {"pst_text_date('31/03/2004')", "13 \"31/03/2004\" is not a date"},
          {"pst_date_text('2004-03-31', 0, 30)", "text 2004-03-31"},
          {"pst_date_text('2004-03-31 14:05:09', 0, 30)", "text 2004-03-31"},
          {"pst_date_text('2004-03-31 14:05:09', 1, 30)", "text Mar 31 2004  2:05PM"},
          {"pst_date_text('2004-03-01', 1, 30)", "text Mar  1 2004 12:00AM"},
          {"pst_date_text('2004-12-25 12:30', 1, 30)", "text Dec 25 2004 12:30PM"},
          {"pst_date_text('2004-03-31', 0, 4)", "text 2004"}});
}

TEST_F(Functions, LikeIgnoresCaseAndTrailingBlanksOfTheText) {
  Expect({{"pst_like('Bolt', 'b%')", "integer 1"},
          {"pst_like('Bolt', '%LT')", "integer 1"},
          {"pst_like('Bolt', 'bo')", "integer 0"},
          {"pst_like('Bolt  ', 'bolt')", "integer 1"},
          {"pst_like('Bolt', 'bolt ')", "integer 0"},
          {"pst_like('Bolt ', 'bolt ')", "integer 1"},
          {"pst_like('', '')", "integer 1"},
          {"pst_like('', '%')", "integer 1"},
          {"pst_like('', '_')", "integer 0"},
          {"pst_like('abc', 'a_c')", "integer 1"},
          {"pst_like('a\u0915c', 'a_c')", "integer 1"},
          {"pst_like('\u00c4pfel', '\u00e4%')", "integer 1"},
          {"pst_like('abab', '%ab')", "integer 1"},
          {"pst_like('aab', '%a%b')", "integer 1"},
          {"pst_like('b5', '[a-c][0-9]')", "integer 1"},
          {"pst_like('B5', '[a-c]5')", "integer 1"},
          {"pst_like('d5', '[a-c]5')", "integer 0"},
          {"pst_like('d5', '[^a-c]5')", "integer 1"},
          {"pst_like('-', '[a-]')", "integer 1"},
          {"pst_like('50%', '50[%]')", "integer 1"},
          {"pst_like('500', '50[%]')", "integer 0"},
          {"pst_like('[x]', '[[]x]')", "integer 1"},
          {"pst_like('[', '[')", "integer 0"},
          {"pst_like('50%', '50!%', '!')", "integer 1"},
          {"pst_like('500', '50!%', '!')", "integer 0"},
          {"pst_like('a_b', 'aX_b', 'X')", "integer 1"},
          {"pst_like('a', 'a', '')", "13 \"\" is not one escape character"},
          {"pst_like('a', 'a', '!!')", "13 \"!!\" is not one escape character"},
          {"pst_like(12, '1%')", "integer 1"},
          {"pst_upper('Stra\u00dfe \u00e4')", "text STRA\u00dfE \u00c4"},
          {"pst_lower('\u00c4B')", "text \u00e4b"}});
}

TEST_F(Functions, LikeReadsAPatternThatChangesWithTheRow) {
  EXPECT_THAT(Lines(*snapshot_,
                    "whole V: SELECT pst_like(s, substr(s, 1, 1) || '%t') FROM t "
                    "WHERE s IS NOT NULL"),
              ElementsAre("1", "1", "1", "1", "0", "0"));
  EXPECT_THAT(Lines(*snapshot_, "text V: SELECT s FROM t WHERE pst_like(s, 'b_l%')"),
              ElementsAre("Bolt", "bolt  ", "BOLT"));
}

TEST_F(Functions, TheCollationIgnoresCaseAndTrailingBlanks) {
  EXPECT_THAT(Lines(*snapshot_,
                    "text S, whole N: SELECT min(s), count(*) FROM t WHERE s IS NOT "
                    "NULL GROUP BY s COLLATE PST_TEXT ORDER BY s COLLATE PST_TEXT"),
              testing::SizeIs(4));
  EXPECT_THAT(Lines(*snapshot_, "whole N: SELECT count(DISTINCT s COLLATE PST_TEXT) FROM t"),
              ElementsAre("4"));
  Expect({{"'a' = 'A  ' COLLATE PST_TEXT", "integer 1"},
          {"'a' = ' a' COLLATE PST_TEXT", "integer 0"},
          {"'\u00e4' = '\u00c4' COLLATE PST_TEXT", "integer 1"},
          {"'a' < 'B' COLLATE PST_TEXT", "integer 1"}});
}

TEST_F(Functions, SumsOfMoneyAreExact) {
  EXPECT_THAT(
      Lines(*snapshot_,
            "whole K, text T, money M: SELECT k, typeof(pst_sum_money(m)), "
            "pst_sum_money(m) FROM t GROUP BY k ORDER BY k"),
      ElementsAre("1|real|0.3000", "2|integer|10.0000", "3|null|(null)", "4|integer|1.0000"));
  Expect(
      {{"(SELECT pst_sum_money(m) = 0.3 FROM t WHERE k = 1)", "integer 1"},
       {"(SELECT sum(m) = 0.3 FROM t WHERE k = 1)", "integer 0"},
       {"(SELECT pst_sum_money(m) FROM t WHERE k = 99)", "null"},
       {"(SELECT pst_sum_money(461168601842739) FROM t WHERE k <= 2)",
        "6 a sum is out of range for money"},
       {"(SELECT pst_sum_money(922337203685478) FROM t)", "6 an amount is out of range for money"},
       {"(SELECT pst_sum_money(s) FROM t WHERE k = 2)", "13 \"Nut\" is not a number"}});
}

TEST_F(Functions, SumsOfFloatsDoNotDependOnTheOrderOfTheRows) {
  const std::string numbers =
      "(WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n "
      "WHERE i < 149999) SELECT ";
  const auto sum = [&](const std::string& value, const std::string& order) {
    return "(SELECT pst_sum_real(v) FROM " + numbers + value + " AS v, i FROM n ORDER BY " + order +
           "))";
  };
  const std::string bought_and_sold = "CASE i % 3 WHEN 0 THEN 0.1 WHEN 1 THEN 0.2 ELSE -0.3 END";
  const std::string amounts = "(i * 7919 % 100003) * 1.0001 - 0.00005";
  Expect({{sum("0.1", "i"), "real 15000.0"},
          {sum(bought_and_sold, "i"), "real 0.0"},
          {sum(bought_and_sold, "v DESC"), "real 0.0"},
          {"(" + sum(amounts, "i") + " = " + sum(amounts, "v") + ")", "integer 1"},
          {"(" + sum(amounts, "i") + " = " + sum(amounts, "-v") + ")", "integer 1"},
          {"(SELECT pst_sum_real(m) FROM t WHERE k = 99)", "null"},
          {"(SELECT pst_average_real(m) FROM t WHERE k = 99)", "null"},
          {"(SELECT pst_average_real(v) FROM (SELECT 0.1 AS v UNION ALL SELECT NULL UNION ALL "
           "SELECT 0.3))",
           "real 0.2"},
          {"(SELECT pst_sum_real(v) FROM (SELECT 1e308 AS v UNION ALL SELECT 1e308))",
           "6 a result is out of range for a number"}});
}

TEST_F(Functions, SumsOfDecimalsAreExactInTheirPlaces) {
  Expect(
      {{"(SELECT pst_sum_decimal(m, 1) = 0.3 FROM t WHERE k = 1)", "integer 1"},
       {"(SELECT pst_sum_decimal(m, 6) FROM t WHERE k = 3)", "null"},
       {"(SELECT pst_sum_decimal(-m, 2) FROM t WHERE k = 4)", "real -1.0"},
       {"(SELECT pst_sum_decimal(5e37, 0) FROM t WHERE k <= 2)",
        "6 a sum is out of range for a decimal"},
       {"(SELECT pst_sum_decimal(1e30, 10) FROM t)", "6 a number is out of range for a decimal"}});
}

TEST_F(Functions, OnlyOneRowMayStandForAValue) {
  Expect({{"(SELECT pst_only(s) FROM t WHERE k = 2)", "text Nut"},
          {"(SELECT pst_only(s) FROM t WHERE k = 3)", "null"},
          {"(SELECT pst_only(s) FROM t WHERE k = 99)", "null"},
          {"(SELECT pst_only(s) FROM t WHERE k = 4)",
           "-2147217900 a subquery that stands for a value gave more than one row"},
          {"(SELECT pst_only(n) FROM t WHERE k = 3 OR n = 7)",
           "-2147217900 a subquery that stands for a value gave more than one row"}});
}

TEST_F(Functions, AnErrorIsOfItsStatementAlone) {
  EXPECT_EQ(Value("pst_div_real(1, 0)"), "11 division by zero");
  EXPECT_EQ(Value("missing"), "-2147217900 while preparing a statement: no such column: missing");
  EXPECT_EQ(Value("pst_div_real(1, 2)"), "real 0.5");
}

// --- Against slow and plain ways

// Rounds the 15 digits that "%.15g" shows, as one does on paper.
double RoundedOnPaper(double x, int n) {
  char shown[400];
  std::snprintf(shown, sizeof shown, "%.*f", 60, std::fabs(x));
  std::string digits(shown);
  const std::size_t point = digits.find('.');
  std::size_t first = digits.find_first_of("123456789");
  if (first == std::string::npos) return x;
  char fifteen[64];
  std::snprintf(fifteen, sizeof fifteen, "%.14e", std::fabs(x));
  const int exponent = std::atoi(std::string(fifteen).substr(17).c_str());
  std::string all(40, '0');  // 40 digits before the point, then those behind it
  all += std::string(60, '0');
  std::string mantissa = std::string(1, fifteen[0]) + std::string(fifteen + 2, 14);
  for (std::size_t i = 0; i < mantissa.size(); ++i) {
    const int at = 39 - exponent + static_cast<int>(i);
    if (at >= 0 && at < 100) all[static_cast<std::size_t>(at)] = mantissa[i];
  }
  static_cast<void>(point);
  const auto cut = static_cast<std::size_t>(n) + 40;
  const bool up = all[cut] >= '5';
  std::string kept = all.substr(0, cut);
  if (up) {
    std::size_t at = kept.size();
    while (kept[--at] == '9') kept[at] = '0';
    ++kept[at];
  }
  if (kept.size() < 40) kept.resize(40, '0');
  if (kept.size() > 40) kept.insert(40, 1, '.');
  return std::copysign(std::strtod(kept.c_str(), nullptr), x);
}

TEST(Decimals, RoundingAgreesWithPaper) {
  std::mt19937_64 random(7);
  std::uniform_int_distribution<std::int64_t> units(-99999999999, 99999999999);
  std::uniform_int_distribution<int> places(0, 8);
  std::uniform_int_distribution<int> wanted(-3, 6);
  for (int i = 0; i < 20000; ++i) {
    const double x = static_cast<double>(units(random)) / std::pow(10.0, places(random));
    const int n = wanted(random);
    EXPECT_EQ(RoundDecimal(x, n), RoundedOnPaper(x, n)) << x << " to " << n;
  }
}

TEST(Decimals, UnitsComeBack) {
  std::mt19937_64 random(11);
  std::uniform_int_distribution<std::int64_t> units(-99999999999999, 99999999999999);
  for (int i = 0; i < 20000; ++i) {
    const std::int64_t u = units(random);
    for (const int places : {0, 2, 4, 6}) {
      const std::optional<Int128> back = UnitsOf(FromUnits(u, places), places);
      ASSERT_TRUE(back.has_value());
      EXPECT_EQ(static_cast<std::int64_t>(*back), u);
    }
  }
}

TEST(Decimals, BeyondThirtyEightDigitsThereAreNoUnits) {
  EXPECT_FALSE(UnitsOf(2e38, 0).has_value());
  EXPECT_TRUE(UnitsOf(1e37, 0).has_value());
  EXPECT_FALSE(UnitsOf(std::nan(""), 0).has_value());
  EXPECT_FALSE(UnitsOf(-INFINITY, 4).has_value());
}

}  // namespace
}  // namespace pstolvane1::sqlite
