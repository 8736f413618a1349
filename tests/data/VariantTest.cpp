#include <limits>

#include "session/data/Variant.h"
#include "tests/data/ExpectError.h"

namespace pstolvane1 {
namespace {

const Variant kAmount = Currency::FromText("-12.5");

TEST(Variant, KnowsEmptyFromNull) {
  EXPECT_TRUE(Variant().IsEmpty());
  EXPECT_FALSE(Variant().IsNull());
  EXPECT_TRUE(Variant(Null).IsNull());
  EXPECT_FALSE(Variant(Null).IsEmpty());
  EXPECT_NE(Variant(), Variant(Null));
  EXPECT_EQ(Variant(Null), Variant(Null));
}

TEST(Variant, TellsItsType) {
  EXPECT_EQ(Variant().Type(), adEmpty);
  EXPECT_EQ(Variant(Null).Type(), adEmpty);
  EXPECT_EQ(Variant(true).Type(), adBoolean);
  EXPECT_EQ(Variant(1).Type(), adInteger);
  EXPECT_EQ(Variant(std::int64_t{1}).Type(), adBigInt);
  EXPECT_EQ(Variant(1.0F).Type(), adSingle);
  EXPECT_EQ(Variant(1.0).Type(), adDouble);
  EXPECT_EQ(kAmount.Type(), adCurrency);
  EXPECT_EQ(Variant(Date(1)).Type(), adDate);
  EXPECT_EQ(Variant("a").Type(), adBSTR);
  EXPECT_EQ(Variant(std::shared_ptr<Recordset>()).Type(), adChapter);
}

TEST(Variant, EqualsInKindAndValue) {
  EXPECT_EQ(Variant(1), Variant(1));
  EXPECT_NE(Variant(1), Variant(1.0));
  EXPECT_NE(Variant("a"), Variant("A"));
}

TEST(Variant, EmptyIsZeroFalseAndTheEmptyText) {
  EXPECT_EQ(Variant().ToInt32(), 0);
  EXPECT_EQ(Variant().ToDouble(), 0);
  EXPECT_EQ(Variant().ToText(), "");
  EXPECT_EQ(Variant().ToBoolean(), False);
  EXPECT_EQ(Variant().ToDate(), Date(0));
}

TEST(Variant, NullConvertsToNothing) {
  const Variant null = Null;
  ExpectError(ErrorNumber::kInvalidUseOfNull, "Null cannot be used as a number: no value is known",
              [&] { (void)null.ToInt32(); });
  ExpectError(ErrorNumber::kInvalidUseOfNull, "Null cannot be used as text: no value is known",
              [&] { (void)null.ToText(); });
  ExpectError(ErrorNumber::kInvalidUseOfNull, "Null cannot be used as a date: no value is known",
              [&] { (void)null.ToDate(); });
  ExpectError(ErrorNumber::kInvalidUseOfNull, "Null cannot be used as a flag: no value is known",
              [&] { (void)null.ToBoolean(); });
  ExpectError(ErrorNumber::kInvalidUseOfNull, "Null cannot be used as a rowset: no value is known",
              [&] { (void)null.ToRowset(); });
}

TEST(Variant, RoundsToAWholeNumberHalfToEven) {
  EXPECT_EQ(Variant(2.5).ToInt32(), 2);
  EXPECT_EQ(Variant(3.5).ToInt32(), 4);
  EXPECT_EQ(Variant(-2.5).ToInt64(), -2);
  EXPECT_EQ(Variant(Currency::FromText("2.5")).ToInt32(), 2);
  EXPECT_EQ(Variant(Currency::FromText("3.5")).ToInt32(), 4);
  EXPECT_EQ(Variant(Currency::FromText("-3.5")).ToInt32(), -4);
  EXPECT_EQ(Variant(Currency::FromText("-2.5001")).ToInt32(), -3);
  EXPECT_EQ(Variant("2.5").ToInt32(), 2);
}

TEST(Variant, RaisesOverflowBeyondTheTargetsRange) {
  EXPECT_EQ(Variant(std::int64_t{2147483647}).ToInt32(), 2147483647);
  ExpectError(ErrorNumber::kOverflow, "2147483648 is beyond the range of a 32-bit whole number",
              [] { (void)Variant(std::int64_t{2147483648}).ToInt32(); });
  ExpectError(ErrorNumber::kOverflow, "2147483647.5 is beyond the range of a 32-bit whole number",
              [] { (void)Variant(2147483647.5).ToInt32(); });
  ExpectError(ErrorNumber::kOverflow, "1e+19 is beyond the range of a 64-bit whole number",
              [] { (void)Variant(1e19).ToInt64(); });
  ExpectError(ErrorNumber::kOverflow, "1e+39 is beyond the range of a 32-bit float",
              [] { (void)Variant(1e39).ToSingle(); });
  ExpectError(ErrorNumber::kOverflow, "1000000000000000 is beyond the range of money",
              [] { (void)Variant(std::int64_t{1000000000000000}).ToCurrency(); });
  ExpectError(ErrorNumber::kOverflow,
              "10000000 days from 30 December 1899 lie outside the years 100 to 9999",
              [] { (void)Variant(10000000).ToDate(); });
}

TEST(Variant, ReadsNumbersFromText) {
  EXPECT_EQ(Variant(" 12 ").ToInt32(), 12);
  EXPECT_EQ(Variant("-12.5").ToDouble(), -12.5);
  EXPECT_EQ(Variant("1e3").ToInt32(), 1000);
  EXPECT_EQ(Variant("9223372036854775807").ToInt64(), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(Variant("-9223372036854775808").ToInt64(), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(Variant("922337203685477.5807").ToCurrency(),
            Currency::FromText("922337203685477.5807"));
  EXPECT_EQ(Variant("0.09375").ToCurrency().TenThousandths(), 938);
  for (const char* text : {"", "abc", "1,5", "12 34", "1e", "."}) {
    ExpectError(ErrorNumber::kTypeMismatch,
                "the text \"" + std::string(text) + "\" cannot be used as a number",
                [&] { (void)Variant(text).ToDouble(); });
  }
}

TEST(Variant, ConvertsFlags) {
  EXPECT_EQ(Variant(true).ToInt32(), -1);
  EXPECT_TRUE(Variant(5).ToBoolean().IsTrue());
  EXPECT_FALSE(Variant(0.0).ToBoolean().IsSet());
  EXPECT_TRUE(Variant(0.1).ToBoolean().IsSet());
  EXPECT_TRUE(Variant("TRUE").ToBoolean().IsTrue());
  EXPECT_FALSE(Variant("false").ToBoolean().IsSet());
  EXPECT_TRUE(Variant("1").ToBoolean().IsTrue());
  // A flag keeps what the host passed.
  EXPECT_EQ(Variant(Boolean(1)).ToBoolean().Raw(), 1);
  EXPECT_FALSE(Variant(Boolean(1)).ToBoolean().IsTrue());
  ExpectError(ErrorNumber::kTypeMismatch, "the text \"yes\" cannot be used as a flag",
              [] { (void)Variant("yes").ToBoolean(); });
  ExpectError(ErrorNumber::kTypeMismatch, "a date cannot be used as a flag",
              [] { (void)Variant(Date(1)).ToBoolean(); });
}

TEST(Variant, ConvertsDates) {
  EXPECT_EQ(Variant("2004-03-31").ToDate(), Date(38077));
  EXPECT_EQ(Variant(38077.5).ToDate(), Date(38077.5));
  EXPECT_EQ(Variant(Date(38077)).ToInt32(), 38077);
  ExpectError(ErrorNumber::kTypeMismatch, "the text \"31.3.2004\" cannot be used as a date",
              [] { (void)Variant("31.3.2004").ToDate(); });
  ExpectError(ErrorNumber::kTypeMismatch, "a flag cannot be used as a date",
              [] { (void)Variant(true).ToDate(); });
}

TEST(Variant, WritesText) {
  EXPECT_EQ(Variant(-7).ToText(), "-7");
  EXPECT_EQ(Variant(0.1F).ToText(), "0.1");
  EXPECT_EQ(Variant(0.1).ToText(), "0.1");
  EXPECT_EQ(Variant(100000.0).ToText(), "100000");
  EXPECT_EQ(Variant(1e15).ToText(), "1e+15");
  EXPECT_EQ(Variant(-0.0).ToText(), "0");
  EXPECT_EQ(Variant(0.00001).ToText(), "0.00001");
  EXPECT_EQ(Variant(0.000001).ToText(), "1e-06");
  EXPECT_EQ(kAmount.ToText(), "-12.5");
  EXPECT_EQ(Variant(Currency::FromText("100.0000")).ToText(), "100");
  EXPECT_EQ(Variant(Currency()).ToText(), "0");
  EXPECT_EQ(Variant(Date(38077.5)).ToText(), "2004-03-31 12:00:00");
  EXPECT_EQ(Variant(true).ToText(), "True");
  EXPECT_EQ(Variant(false).ToText(), "False");
  EXPECT_EQ(Variant("a b").ToText(), "a b");
}

TEST(Variant, RowsetIsNoPlainValue) {
  const Variant rowset = std::shared_ptr<Recordset>();
  EXPECT_EQ(rowset.ToRowset(), nullptr);
  ExpectError(ErrorNumber::kTypeMismatch, "a rowset cannot be used as a number",
              [&] { (void)rowset.ToInt32(); });
  ExpectError(ErrorNumber::kTypeMismatch, "a rowset cannot be used as text",
              [&] { (void)rowset.ToText(); });
  ExpectError(ErrorNumber::kTypeMismatch, "a plain value cannot be used as a rowset",
              [] { (void)Variant(1).ToRowset(); });
}

}  // namespace
}  // namespace pstolvane1
