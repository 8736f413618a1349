#include <gtest/gtest.h>

#include "session/data/Error.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

const Locale& India() {
  static const std::shared_ptr<const Locale> locale = Locale::Get("en_IN");
  return *locale;
}

constexpr ReportColumn kColumns[] = {
    Display("Item"),         Display("Amount"),    Key("Item_Id", adBigInt),
    Marker("TotalLine"),     TextTwin("ItemSort"), QuantityTwin("QtySort"),
    MoneyTwin("AmountSort"), DateTwin("DateSORT"), MoneyTextTwin("PriceSOrt"),
    NumberTwin("DummySort"),
};

TEST(NewReportRowset, HasTheColumnsInTheirOrderWithTypeSizeAndAttributes) {
  const RecordsetPtr rowset = NewReportRowset(kColumns);
  EXPECT_EQ(rowset->State(), adStateOpen);
  EXPECT_EQ(rowset->ActiveConnection(), nullptr);
  ASSERT_EQ(rowset->Fields().Count(), static_cast<int>(std::size(kColumns)));
  const std::vector<std::tuple<std::string, DataType, int, int>> expected = {
      {"Item", adBSTR, 0, -1},           {"Amount", adBSTR, 0, -1},
      {"Item_Id", adBigInt, 0, -1},      {"TotalLine", adBSTR, 0, -1},
      {"ItemSort", adVarChar, 255, 32},  {"QtySort", adSingle, 0, 32},
      {"AmountSort", adCurrency, 0, 32}, {"DateSORT", adDate, 0, 32},
      {"PriceSOrt", adVarChar, 255, 6},  {"DummySort", adBigInt, 0, 32}};
  for (int i = 0; i < rowset->Fields().Count(); ++i) {
    const Field field = rowset->Fields()(i);
    EXPECT_EQ(std::tuple(field.Name(), field.Type(), field.DefinedSize(), field.Attributes()),
              expected[static_cast<std::size_t>(i)]);
  }
}

TEST(ReportLayout, FindsColumnsInAnyCaseWhenItIsCompiled) {
  static constexpr ReportLayout kLayout = {Display("Price"), Key("Id"), MoneyTextTwin("PriceSOrt")};
  static_assert(kLayout.At("Price") == ColumnHandle{0});
  static_assert(kLayout.At("pricesort") == ColumnHandle{2});
  static_assert(kLayout.Twinned("price").shown == ColumnHandle{0});
  static_assert(kLayout.Twinned("price").twin == ColumnHandle{2});
  const RecordsetPtr rowset = NewReportRowset(kLayout);
  EXPECT_EQ(kLayout.At("PriceSort"), rowset->Column("PriceSort"));
}

TEST(ReportWriter, ATwinHasWhatIsShownUnlessItIsMoney) {
  static constexpr ReportLayout kLayout = {Display("Name"),         Display("Amount"),
                                           Display("Price"),        TextTwin("NameSort"),
                                           MoneyTwin("AmountSort"), MoneyTextTwin("PriceSort")};
  ReportWriter writer(kLayout, India());
  const Currency amount = Currency::FromText("-1234567.125");
  writer.AddLine(1);
  writer.Value(kLayout.Twinned("Name"), "Anand");
  writer.Money(kLayout.Twinned("Amount"), amount);
  writer.Text(kLayout.Twinned("Price"), writer.MoneyText(amount));
  writer.AddLine(1);
  writer.Value(kLayout.Twinned("Name"), Null);
  writer.Money(kLayout.At("Amount"), 0);
  const RecordsetPtr report = writer.Finish();
  EXPECT_EQ(report->Collect("Name"), Variant("Anand"));
  EXPECT_EQ(report->Collect("NameSort"), Variant("Anand"));
  EXPECT_EQ(report->Collect("Amount"), Variant("-₹12,34,567.13"));
  EXPECT_EQ(report->Collect("AmountSort"), Variant(amount));
  EXPECT_EQ(report->Collect("Price"), Variant("-₹12,34,567.13"));
  EXPECT_EQ(report->Collect("PriceSort"), Variant("-₹12,34,567.13"));
  report->MoveNext();
  EXPECT_TRUE(report->Collect("Name").IsNull());
  EXPECT_TRUE(report->Collect("NameSort").IsNull());
  EXPECT_EQ(report->Collect("Amount"), Variant("₹0.00"));
  EXPECT_TRUE(report->Collect("AmountSort").IsNull());
}

TEST(ReportWriter, MoneyThatIsNotKnownIsAnError) {
  static constexpr ReportLayout kLayout = {Display("Amount"), MoneyTwin("AmountSort")};
  ReportWriter writer(kLayout, India());
  writer.AddLine(1);
  try {
    writer.Money(kLayout.Twinned("Amount"), Null);
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kInvalidUseOfNull);
  }
}

TEST(ReportWriter, CellsThatALineDoesNotWriteAreNull) {
  ReportWriter writer(kColumns, India());
  writer.AddLine(1);
  writer.Text(writer.Column("item"), "Chain");
  const RecordsetPtr report = writer.Finish();
  EXPECT_EQ(report->Collect("Item"), Variant("Chain"));
  EXPECT_TRUE(report->Collect("Amount").IsNull());
  EXPECT_TRUE(report->Collect("QtySort").IsNull());
  EXPECT_EQ(report->Collect("DummySort"), Variant(std::int64_t{1}));
}

TEST(ReportWriter, InTheClassFormDetailsReorderAndClosingLinesStayLast) {
  ReportWriter writer(kColumns, India());
  const ColumnHandle item = writer.Column("Item");
  const ColumnHandle twin = writer.Column("ItemSort");
  for (const char* const name : {"Lamp", "Chain"}) {
    writer.AddLine(1);
    writer.Text(item, name);
    writer.Text(twin, name);
  }
  writer.AddLine(2);
  writer.Text(writer.Column("TotalLine"), RuleText(3));
  writer.AddLine(3);
  writer.Text(item, "Total");
  const RecordsetPtr report = writer.Finish();
  report->Sort("DummySort, ItemSort");
  std::vector<std::string> order;
  for (const Recordset::Row row : report->Rows()) {
    order.push_back(row["Item"].IsNull() ? "(null)" : row["Item"].ToText());
  }
  EXPECT_EQ(order, (std::vector<std::string>{"Chain", "Lamp", "(null)", "Total"}));
}

TEST(ReportWriter, InTheSequenceFormASortKeepsSubLinesBehindTheirParent) {
  ReportWriter writer(kColumns, India());
  const ColumnHandle item = writer.Column("Item");
  const ColumnHandle twin = writer.Column("ItemSort");
  const ColumnHandle amount = writer.Column("AmountSort");
  for (const char* const name : {"Lamp", "Chain"}) {
    writer.AddNextLine();
    writer.Text(item, name);
    writer.Text(twin, name);
    writer.Value(amount, Currency::FromText("5"));
    writer.AddSubLine();
    writer.Text(item, "  godown A");
    writer.AddSubLine();
    writer.Text(item, "  godown B");
  }
  const RecordsetPtr report = writer.Finish();
  report->Sort("ItemSort DESC, DummySort");
  std::vector<std::string> order;
  for (const Recordset::Row row : report->Rows()) {
    order.push_back(row["Item"].ToText() + " " + row["DummySort"].ToText());
    EXPECT_EQ(row["AmountSort"], Variant(Currency::FromText("5")));
  }
  EXPECT_EQ(order, (std::vector<std::string>{"Lamp 1", "  godown A 2", "  godown B 3", "Chain 4",
                                             "  godown A 5", "  godown B 6"}));
}

TEST(ReportWriter, ABlankSpacerHoldsNothingButItsPlace) {
  constexpr ReportColumn kWithHead[] = {Marker("Head"), Display("Item"), TextTwin("ItemSort"),
                                        NumberTwin("DummySort")};
  ReportWriter writer(kWithHead, India());
  writer.AddNextLine();
  writer.Text(writer.Column("Head"), "");
  const RecordsetPtr report = writer.Finish();
  EXPECT_EQ(report->Collect("Head"), Variant(""));
  EXPECT_TRUE(report->Collect("Item").IsNull());
  EXPECT_TRUE(report->Collect("ItemSort").IsNull());
  EXPECT_EQ(report->Collect("DummySort"), Variant(std::int64_t{1}));
}

TEST(ReportWriter, ALayoutWithoutDummySortHasNoneWritten) {
  constexpr ReportColumn kPlain[] = {Display("Item")};
  ReportWriter writer(kPlain, India());
  writer.AddLine(1);
  writer.Text(writer.Column("Item"), "Chain");
  EXPECT_EQ(writer.Finish()->RecordCount(), 1);
}

TEST(ReportWriter, WithoutLinesTheRowsetIsEmptyAndOpen) {
  ReportWriter writer(kColumns, India());
  const RecordsetPtr report = writer.Finish();
  EXPECT_EQ(report->RecordCount(), 0);
  EXPECT_TRUE(report->Eof());
}

TEST(RuleText, IsAsWideAsAsked) {
  EXPECT_EQ(RuleText(90), std::string(90, '_'));
  EXPECT_EQ(RuleText(0), "");
}

}  // namespace
}  // namespace pstolvane1
