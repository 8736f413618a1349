#include <limits>

#include "tests/data/ExpectError.h"
#include "tests/data/MakeRowset.h"

namespace pstolvane1 {
namespace {

const TestColumns kAllTypes = {{"Int", adInteger},    {"Single", adSingle}, {"Double", adDouble},
                               {"Money", adCurrency}, {"Date", adDate},     {"Text", adBSTR},
                               {"Flag", adBoolean},   {"Big", adBigInt},    {"Name", adVarChar}};

RecordsetPtr OneRow() {
  return MakeRowset(kAllTypes, {{7, 2.5F, -0.1, Currency::FromText("12.3456"), Date(38077.5),
                                 "Bolt", true, std::int64_t{1} << 40, "Näme"}});
}

TEST(RecordsetValues, ComeBackAsTheyWereWritten) {
  const RecordsetPtr rowset = OneRow();
  EXPECT_EQ(rowset->Collect("Int"), Variant(7));
  EXPECT_EQ(rowset->Collect("Single"), Variant(2.5F));
  EXPECT_EQ(rowset->Collect("Double"), Variant(-0.1));
  EXPECT_EQ(rowset->Collect("Money"), Variant(Currency::FromText("12.3456")));
  EXPECT_EQ(rowset->Collect("Date"), Variant(Date(38077.5)));
  EXPECT_EQ(rowset->Collect("Text"), Variant("Bolt"));
  EXPECT_EQ(rowset->Collect("Flag"), Variant(true));
  EXPECT_EQ(rowset->Collect("Big"), Variant(std::int64_t{1} << 40));
  EXPECT_EQ(rowset->Collect("Name"), Variant("Näme"));
  EXPECT_EQ(rowset->Fields("Int").Value(), Variant(7));
  EXPECT_EQ(rowset->Value(ColumnHandle{5}), Variant("Bolt"));
}

TEST(RecordsetValues, ReadTypedFromTheirOwnType) {
  const RecordsetPtr rowset = OneRow();
  EXPECT_EQ(rowset->Int32(ColumnHandle{0}), 7);
  EXPECT_EQ(rowset->Single(ColumnHandle{1}), 2.5F);
  EXPECT_EQ(rowset->Double(ColumnHandle{2}), -0.1);
  EXPECT_EQ(rowset->Money(ColumnHandle{3}), Currency::FromText("12.3456"));
  EXPECT_EQ(rowset->DateOf(ColumnHandle{4}), Date(38077.5));
  EXPECT_EQ(rowset->Text(ColumnHandle{5}), "Bolt");
  EXPECT_TRUE(rowset->Flag(ColumnHandle{6}));
  EXPECT_EQ(rowset->Int64(ColumnHandle{7}), std::int64_t{1} << 40);
  EXPECT_EQ(rowset->Text(ColumnHandle{8}), "Näme");
}

TEST(RecordsetValues, NumbersConvertFromAnyNumberColumn) {
  const RecordsetPtr rowset = OneRow();
  EXPECT_EQ(rowset->Int32(rowset->Column("Single")), 2);  // half to even
  EXPECT_EQ(rowset->Int64(rowset->Column("Int")), 7);
  EXPECT_EQ(rowset->Double(rowset->Column("Money")), 12.3456);
  EXPECT_EQ(rowset->Money(rowset->Column("Int")), Currency::FromText("7"));
  EXPECT_EQ(rowset->Money(rowset->Column("Double")), Currency::FromText("-0.1"));
  EXPECT_EQ(rowset->Double(rowset->Column("Date")), 38077.5);
  EXPECT_EQ(rowset->Int32(rowset->Column("Flag")), -1);
  EXPECT_EQ(rowset->Single(rowset->Column("Money")), 12.3456F);
  EXPECT_TRUE(rowset->Flag(rowset->Column("Double")));
}

TEST(RecordsetValues, TextThatIsANumberOrADateConverts) {
  const RecordsetPtr rowset =
      MakeRowset({{"A", adBSTR}, {"B", adBSTR}}, {{" 12.5 ", "2004-03-31"}});
  EXPECT_EQ(rowset->Double(ColumnHandle{0}), 12.5);
  EXPECT_EQ(rowset->DateOf(ColumnHandle{1}), Date(38077));
  ExpectError(ErrorNumber::kTypeMismatch,
              "the column \"B\" holds the text \"2004-03-31\", which is not a number",
              [&] { (void)rowset->Int32(ColumnHandle{1}); });
  ExpectError(ErrorNumber::kTypeMismatch,
              "while reading the column \"A\": the text \" 12.5 \" cannot be used as a date",
              [&] { (void)rowset->DateOf(ColumnHandle{0}); });
}

TEST(RecordsetValues, ReadBeyondTheRangeIsAnOverflow) {
  const RecordsetPtr rowset = OneRow();
  ExpectError(
      ErrorNumber::kOverflow,
      "while reading the column \"Big\": 1099511627776 is beyond the range of a 32-bit whole "
      "number",
      [&] { (void)rowset->Int32(rowset->Column("Big")); });
}

TEST(RecordsetValues, ReadOfAnotherKindIsAMismatch) {
  const RecordsetPtr rowset = OneRow();
  ExpectError(ErrorNumber::kTypeMismatch, "the column \"Int\" cannot be read as text",
              [&] { (void)rowset->Text(rowset->Column("Int")); });
  ExpectError(ErrorNumber::kTypeMismatch, "the column \"Flag\" cannot be read as a date",
              [&] { (void)rowset->DateOf(rowset->Column("Flag")); });
  ExpectError(ErrorNumber::kTypeMismatch, "the column \"Date\" cannot be read as a flag",
              [&] { (void)rowset->Flag(rowset->Column("Date")); });
  ExpectError(ErrorNumber::kTypeMismatch, "the column \"Int\" cannot be read as a rowset",
              [&] { (void)rowset->Chapter(rowset->Column("Int")); });
}

TEST(RecordsetValues, NewRowHoldsNulls) {
  const RecordsetPtr rowset = MakeRowset(kAllTypes, {{}});
  for (int column = 0; column < 9; ++column) {
    EXPECT_TRUE(rowset->IsNull(ColumnHandle{column}));
    EXPECT_TRUE(rowset->Value(ColumnHandle{column}).IsNull());
  }
  EXPECT_EQ(rowset->Text(rowset->Column("Text")), "");
  ExpectError(ErrorNumber::kInvalidUseOfNull, "the column \"Int\" is Null in this row",
              [&] { (void)rowset->Int32(rowset->Column("Int")); });
  ExpectError(ErrorNumber::kInvalidUseOfNull, "the column \"Int\" is Null in this row",
              [&] { (void)rowset->Double(rowset->Column("Int")); });
  ExpectError(ErrorNumber::kInvalidUseOfNull, "the column \"Date\" is Null in this row",
              [&] { (void)rowset->DateOf(rowset->Column("Date")); });
  ExpectError(ErrorNumber::kInvalidUseOfNull, "the column \"Flag\" is Null in this row",
              [&] { (void)rowset->Flag(rowset->Column("Flag")); });
}

TEST(RecordsetValues, NullAndEmptyAreStoredAsNullAndAnEmptyTextIsNot) {
  const RecordsetPtr rowset = OneRow();
  rowset->Collect("Int", Null);
  rowset->Collect("Money", Variant());
  rowset->Collect("Text", "");
  rowset->Collect("Name", Null);
  EXPECT_TRUE(rowset->Collect("Int").IsNull());
  EXPECT_TRUE(rowset->Collect("Money").IsNull());
  EXPECT_EQ(rowset->Collect("Text"), Variant(""));
  EXPECT_TRUE(rowset->Collect("Name").IsNull());
}

TEST(RecordsetValues, WritesConvertToTheColumnsType) {
  const RecordsetPtr rowset = OneRow();
  rowset->Collect("Int", 3.5);
  rowset->Collect("Single", 0.1);
  rowset->Collect("Money", 100.0 / 3.0);
  rowset->Collect("Text", 12.5);
  rowset->Collect("Name", Date(38077));
  rowset->Collect("Date", "2005-01-02 03:04:05");
  rowset->Collect("Flag", 1);
  rowset->Collect("Big", "123");
  EXPECT_EQ(rowset->Collect("Int"), Variant(4));
  EXPECT_EQ(rowset->Collect("Single"), Variant(0.1F));
  EXPECT_EQ(rowset->Collect("Money"), Variant(Currency::FromText("33.3333")));
  EXPECT_EQ(rowset->Collect("Text"), Variant("12.5"));
  EXPECT_EQ(rowset->Collect("Name"), Variant("2004-03-31"));
  EXPECT_EQ(rowset->Collect("Date").ToText(), "2005-01-02 03:04:05");
  EXPECT_EQ(rowset->Collect("Flag"), Variant(true));
  EXPECT_EQ(rowset->Collect("Big"), Variant(std::int64_t{123}));
  rowset->SetText(rowset->Column("Int"), "42");
  rowset->Set(rowset->Column("Text"), "set");
  rowset->Fields("Double").Value(1);
  EXPECT_EQ(rowset->Collect("Int"), Variant(42));
  EXPECT_EQ(rowset->Collect("Text"), Variant("set"));
  EXPECT_EQ(rowset->Collect("Double"), Variant(1.0));
}

TEST(RecordsetValues, WriteThatFailsNamesTheColumnAndLeavesTheCell) {
  const RecordsetPtr rowset = OneRow();
  ExpectError(ErrorNumber::kOverflow,
              "while writing the column \"Int\": 2147483648 is beyond the range of a 32-bit whole "
              "number",
              [&] { rowset->Collect("Int", std::int64_t{2147483648}); });
  ExpectError(ErrorNumber::kOverflow,
              "while writing the column \"Money\": 1e+15 is beyond the range of money",
              [&] { rowset->Collect("Money", 1e15); });
  ExpectError(ErrorNumber::kOverflow,
              "while writing the column \"Single\": 1e+39 is beyond the range of a 32-bit float",
              [&] { rowset->Collect("Single", 1e39); });
  ExpectError(ErrorNumber::kTypeMismatch,
              "while writing the column \"Date\": the text \"31.3.2004\" cannot be used as a date",
              [&] { rowset->Collect("Date", "31.3.2004"); });
  ExpectError(ErrorNumber::kTypeMismatch,
              "while writing the column \"Text\": a rowset cannot be used as text",
              [&] { rowset->Collect("Text", rowset); });
  EXPECT_EQ(rowset->Collect("Int"), Variant(7));
  EXPECT_EQ(rowset->Collect("Date"), Variant(Date(38077.5)));
}

TEST(RecordsetValues, TextLongerThanTheDefinedSizeIsRefusedNotCut) {
  const RecordsetPtr rowset = Recordset::New();
  rowset->Fields().Append("NameSort", adVarChar, 5);
  rowset->Fields().Append("Free", adVarChar);
  rowset->Open();
  rowset->AddNew();
  rowset->Collect("NameSort", "ÄÖÜäö");  // five characters, ten bytes
  EXPECT_EQ(rowset->Collect("NameSort"), Variant("ÄÖÜäö"));
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "a text of 6 characters does not fit into the column \"NameSort\", which takes 5",
              [&] { rowset->Collect("NameSort", "abcdef"); });
  EXPECT_EQ(rowset->Collect("NameSort"), Variant("ÄÖÜäö"));
  rowset->Collect("Free", std::string(1000, 'x'));
  EXPECT_EQ(rowset->Collect("Free").ToText().size(), 1000U);
}

TEST(RecordsetValues, FlagKeepsTheNumberThatTheHostPassed) {
  const RecordsetPtr rowset = MakeRowset({{"Flag", adBoolean}}, {{Boolean(1)}});
  EXPECT_EQ(rowset->Collect("Flag").ToBoolean().Raw(), 1);
  EXPECT_TRUE(rowset->Flag(ColumnHandle{0}));
}

TEST(RecordsetValues, TextsStayWhereTheyAreWhileRowsAreAdded) {
  const RecordsetPtr rowset = MakeRowset({{"Text", adBSTR}}, {{"first"}});
  const std::string_view first = rowset->Text(ColumnHandle{0});
  const RecordsetPtr clone = rowset->Clone();
  for (int i = 0; i < 10000; ++i) {
    rowset->AddNew();
    rowset->SetText(ColumnHandle{0}, "row " + std::to_string(i));
  }
  rowset->Update();
  EXPECT_EQ(rowset->Text(ColumnHandle{0}), "row 9999");
  rowset->Close();
  EXPECT_EQ(first, "first");
  EXPECT_EQ(clone->RecordCount(), 10001);
}

}  // namespace
}  // namespace pstolvane1
