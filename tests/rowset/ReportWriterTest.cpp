#include <array>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "session/data/Error.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

CellStyle IndianCells() {
  static const std::shared_ptr<const Locale> locale = Locale::Get("en_IN");
  return {.locale = *locale};
}

constexpr ReportLayout kColumns = {
    Display("Item"),         Display("Amount"),    Key("Item_Id", adBigInt),
    Marker("TotalLine"),     TextTwin("ItemSort"), QuantityTwin("QtySort"),
    MoneyTwin("AmountSort"), DateTwin("DateSORT"), MoneyTextTwin("PriceSOrt"),
    NumberTwin("DummySort"),
};

TEST(NewReportRowset, HasTheColumnsInTheirOrderWithTypeSizeAndAttributes) {
  const RecordsetPtr rowset = NewReportRowset(kColumns);
  EXPECT_EQ(rowset->State(), adStateOpen);
  EXPECT_EQ(rowset->ActiveConnection(), nullptr);
  ASSERT_EQ(rowset->Fields().Count(), static_cast<int>(kColumns.columns.size()));
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
  ReportWriter writer(kLayout, IndianCells());
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
  ReportWriter writer(kLayout, IndianCells());
  writer.AddLine(1);
  try {
    writer.Money(kLayout.Twinned("Amount"), Null);
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kInvalidUseOfNull);
  }
}

TEST(ReportWriter, CellsThatALineDoesNotWriteAreNull) {
  ReportWriter writer(kColumns, IndianCells());
  writer.AddLine(1);
  writer.Text(kColumns.At("item"), "Chain");
  const RecordsetPtr report = writer.Finish();
  EXPECT_EQ(report->Collect("Item"), Variant("Chain"));
  EXPECT_TRUE(report->Collect("Amount").IsNull());
  EXPECT_TRUE(report->Collect("QtySort").IsNull());
  EXPECT_EQ(report->Collect("DummySort"), Variant(std::int64_t{1}));
}

TEST(ReportWriter, InTheClassFormDetailsReorderAndClosingLinesStayLast) {
  ReportWriter writer(kColumns, IndianCells());
  const ColumnHandle item = kColumns.At("Item");
  const ColumnHandle twin = kColumns.At("ItemSort");
  for (const char* const name : {"Lamp", "Chain"}) {
    writer.AddLine(1);
    writer.Text(item, name);
    writer.Text(twin, name);
  }
  writer.AddLine(2);
  writer.Rule(kColumns.Rule("TotalLine", 3));
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
  ReportWriter writer(kColumns, IndianCells());
  const ColumnHandle item = kColumns.At("Item");
  const ColumnHandle twin = kColumns.At("ItemSort");
  const ColumnHandle amount = kColumns.At("AmountSort");
  for (const char* const name : {"Lamp", "Chain"}) {
    writer.AddLine();
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
  static constexpr ReportLayout kWithHead = {Marker("Head"), Display("Item"), TextTwin("ItemSort"),
                                             NumberTwin("DummySort")};
  ReportWriter writer(kWithHead, IndianCells());
  writer.AddSpacer(kWithHead.At("Head"));
  const RecordsetPtr report = writer.Finish();
  EXPECT_EQ(report->Collect("Head"), Variant(""));
  EXPECT_TRUE(report->Collect("Item").IsNull());
  EXPECT_TRUE(report->Collect("ItemSort").IsNull());
  EXPECT_EQ(report->Collect("DummySort"), Variant(std::int64_t{1}));
}

TEST(ReportWriter, ALayoutWithoutDummySortHasNoneWritten) {
  static constexpr ReportLayout kPlain = {Display("Item")};
  ReportWriter writer(kPlain, IndianCells());
  writer.AddLine(1);
  writer.Text(kPlain.At("Item"), "Chain");
  EXPECT_EQ(writer.Finish()->RecordCount(), 1);
}

TEST(ReportWriter, ClosingLinesAreARuleAndATotalWithTheRuleAgain) {
  static constexpr RuleColumn kRule = kColumns.Rule("TotalLine", 5);
  ReportWriter writer(kColumns, IndianCells());
  writer.AddRuleLine(kRule, 2);
  writer.AddTotalLine(kColumns.At("Item"), kRule, 3);
  writer.Money(kColumns.At("Amount"), 7);
  const RecordsetPtr report = writer.Finish();
  EXPECT_EQ(report->Collect("TotalLine"), Variant("_____"));
  EXPECT_TRUE(report->Collect("Item").IsNull());
  EXPECT_EQ(report->Collect("DummySort"), Variant(std::int64_t{2}));
  report->MoveNext();
  EXPECT_EQ(report->Collect("TotalLine"), Variant("_____"));
  EXPECT_EQ(report->Collect("Item"), Variant("Total"));
  EXPECT_EQ(report->Collect("Amount"), Variant("₹7.00"));
  EXPECT_EQ(report->Collect("DummySort"), Variant(std::int64_t{3}));
  EXPECT_EQ(report->RecordCount(), 2);
}

TEST(ReportWriter, ALinesNumberIsItsClassTheNextOneOrNone) {
  ReportWriter writer(kColumns, IndianCells());
  writer.AddLine();
  writer.AddLine(ReportWriter::kNoNumber);
  writer.AddLine();
  writer.SkipNumber();
  writer.AddLine();
  writer.AddLine(9);
  writer.AddLine();
  std::vector<std::string> numbers;
  const RecordsetPtr report = writer.Finish();
  for (const Recordset::Row row : report->Rows()) {
    numbers.push_back(row["DummySort"].IsNull() ? "-" : row["DummySort"].ToText());
  }
  EXPECT_EQ(numbers, (std::vector<std::string>{"1", "-", "2", "4", "9", "10"}));
}

TEST(ReportWriter, AGroupsHeadIsFilledWhenItsLinesAreWritten) {
  ReportWriter writer(kColumns, IndianCells());
  writer.AddLine();
  writer.Text(kColumns.At("Item"), "Parts");
  const Bookmark head = writer.Line();
  writer.AddLine();
  writer.Text(kColumns.At("Item"), "  Chain");
  writer.ReturnTo(head);
  writer.Money(kColumns.At("Amount"), 5);
  writer.AddLine();
  writer.Text(kColumns.At("Item"), "Tools");
  EXPECT_EQ(writer.Cells(head).Text(kColumns.At("Amount")), "₹5.00");
  EXPECT_EQ(writer.Cells(writer.Line()).Text(kColumns.At("Item")), "Tools");
  const RecordsetPtr report = writer.Finish();
  std::vector<std::string> lines;
  for (const Recordset::Row row : report->Rows()) {
    lines.push_back(row["DummySort"].ToText() + row["Item"].ToText() +
                    std::string(row.Text(kColumns.At("Amount"))));
  }
  EXPECT_EQ(lines, (std::vector<std::string>{"1Parts₹5.00", "2  Chain", "3Tools"}));
}

TEST(ReportWriter, ALineThatIsRemovedLeavesItsNumberOut) {
  ReportWriter writer(kColumns, IndianCells());
  writer.AddLine();
  const Bookmark head = writer.Line();
  writer.AddLine();
  writer.Text(kColumns.At("Item"), "Lamp");
  writer.ReturnTo(head);
  writer.RemoveLine();
  writer.AddLine();
  writer.RemoveLine();
  writer.AddLine();
  const RecordsetPtr report = writer.Finish();
  EXPECT_EQ(report->RecordCount(), 2);
  EXPECT_EQ(report->Collect("Item"), Variant("Lamp"));
  report->MoveNext();
  EXPECT_EQ(report->Collect("DummySort"), Variant(std::int64_t{4}));
}

TEST(ReportWriter, ASubLineMayHaveAParentThatIsNotTheLineBefore) {
  ReportWriter writer(kColumns, IndianCells());
  writer.AddLine(2);
  writer.Text(kColumns.Twinned("Item"), "Bill 1");
  writer.Value(kColumns.At("DateSort"), Date::FromYmd(2024, 4, 1));
  const Bookmark bill = writer.Line();
  writer.AddLine(2);
  writer.AddSubLine(bill, 2);
  writer.Text(kColumns.At("Item"), "brakes");
  const RecordsetPtr report = writer.Finish();
  report->MoveLast();
  EXPECT_EQ(report->Collect("Item"), Variant("brakes"));
  EXPECT_EQ(report->Collect("ItemSort"), Variant("Bill 1"));
  EXPECT_EQ(report->Collect("DateSort"), Variant(Date::FromYmd(2024, 4, 1)));
  EXPECT_TRUE(report->Collect("AmountSort").IsNull());
  EXPECT_EQ(report->Collect("DummySort"), Variant(std::int64_t{2}));
}

// One line with everything a cell can be.
constexpr ReportLayout kCells = {
    Display("Qty"),           Display("Rate"),        Display("Amount"),
    Display("Perc"),          Display("Day"),         Display("RefNo"),
    QuantityTwin("QtySort"),  MoneyTwin("RateSort"),  MoneyTwin("AmountSort"),
    QuantityTwin("PercSort"), DateTwin("DaySort"),    NumberTwin("RefNoSort"),
    TextTwin("PrefixSort"),   TextTwin("SuffixSort"), NumberTwin("DummySort"),
};

class ReportWriterCells : public testing::Test {
 protected:
  explicit ReportWriterCells(double scale = 1000)
      : style({.locale = IndianCells().locale, .scale = scale, .number_separator = "-"}) {}
  // What one line holds that fill writes.
  template <typename Fill>
  RecordsetPtr Line(Fill&& fill) {
    ReportWriter writer(kCells, style);
    writer.AddLine(1);
    fill(writer);
    return writer.Finish();
  }
  CellStyle style;
};

TEST_F(ReportWriterCells, QuantitiesRatesAndPercentagesHaveTheirUnitAndARawTwin) {
  const RecordsetPtr line = Line([](ReportWriter& writer) {
    writer.Quantity(kCells.Twinned("Qty"), 1234.5F, "Nos");
    writer.Rate(kCells.Twinned("Rate"), Currency::FromText("12.345"), "Nos");
    writer.Percent(kCells.Twinned("Perc"), -5);
  });
  EXPECT_EQ(line->Collect("Qty"), Variant("1,234.50 Nos"));
  EXPECT_EQ(line->Collect("QtySort"), Variant(1234.5F));
  EXPECT_EQ(line->Collect("Rate"), Variant("12.35/Nos"));
  EXPECT_EQ(line->Collect("RateSort"), Variant(Currency::FromText("12.345")));
  EXPECT_EQ(line->Collect("Perc"), Variant("-5.00%"));
  EXPECT_EQ(line->Collect("PercSort"), Variant(-5.0F));
}

TEST_F(ReportWriterCells, ScaledMoneyHasTheWholeAmountInItsTwin) {
  const RecordsetPtr line = Line([](ReportWriter& writer) {
    writer.ScaledMoney(kCells.Twinned("Amount"), Currency::FromText("1234567.89"));
    writer.Value(kCells.At("RateSort"), writer.Scaled(1500));
  });
  EXPECT_EQ(line->Collect("Amount"), Variant("₹1,234.57"));
  EXPECT_EQ(line->Collect("AmountSort"), Variant(Currency::FromText("1234567.89")));
  EXPECT_EQ(line->Collect("RateSort"), Variant(Currency::FromText("1.5")));
}

TEST_F(ReportWriterCells, AScaleOfZeroIsADivisionByZero) {
  style.scale = 0;
  try {
    (void)Line([](ReportWriter& writer) { writer.ScaledMoney(kCells.At("Amount"), 1); });
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kDivisionByZero);
    EXPECT_EQ(error.Description(),
              "division by zero: money is divided by sngScale, which is 0; 1 shows it as it is");
  }
}

TEST_F(ReportWriterCells, AZeroIsBlankWhereTheReportSaysSo) {
  const RecordsetPtr line = Line([](ReportWriter& writer) {
    writer.MoneyOrBlank(kCells.Twinned("Amount"), Currency());
    writer.QuantityOrBlank(kCells.Twinned("Qty"), 0, "Nos");
    writer.NumberOrBlank(kCells.Twinned("Rate"), Null);
    writer.MoneyOrBlank(kCells.At("Perc"), "no amount");
  });
  EXPECT_EQ(line->Collect("Amount"), Variant(""));
  EXPECT_EQ(line->Collect("AmountSort"), Variant(Currency()));
  EXPECT_EQ(line->Collect("Qty"), Variant(""));
  EXPECT_EQ(line->Collect("QtySort"), Variant(0.0F));
  EXPECT_EQ(line->Collect("Rate"), Variant(""));
  EXPECT_TRUE(line->Collect("RateSort").IsNull());
  EXPECT_EQ(line->Collect("Perc"), Variant(""));
  const RecordsetPtr other = Line([](ReportWriter& writer) {
    writer.MoneyOrBlank(kCells.At("Amount"), -2);
    writer.QuantityOrBlank(kCells.At("Qty"), 3, "Units");
    writer.NumberOrBlank(kCells.At("Rate"), 4);
  });
  EXPECT_EQ(other->Collect("Amount"), Variant("-₹2.00"));
  EXPECT_EQ(other->Collect("Qty"), Variant("3.00 Units"));
  EXPECT_EQ(other->Collect("Rate"), Variant("4.00"));
}

TEST_F(ReportWriterCells, DatesFollowTheDateRule) {
  const Date day = Date::FromYmd(2024, 3, 31);
  const Date next = Date::FromYmd(2024, 4, 1);
  for (const bool long_date : {false, true}) {
    style.long_date = long_date;
    ReportWriter writer(kCells, style);
    for (const Date each : {day, day, next, day}) {
      writer.AddLine(1);
      writer.Date(kCells.Twinned("Day"), each);
      EXPECT_EQ(writer.DateText(each), long_date ? style.locale.FormatLongDate(each)
                                                 : style.locale.FormatGeneralDate(each));
    }
    const RecordsetPtr report = writer.Finish();
    for (const Recordset::Row row : report->Rows()) {
      EXPECT_EQ(row["Day"], Variant(writer.DateText(row["DaySort"])));
    }
    report->MoveLast();
    EXPECT_EQ(report->Collect("Day").ToText(), long_date ? "Sunday, 31 March, 2024" : "31/03/2024");
    EXPECT_EQ(report->Collect("DaySort"), Variant(day));
  }
}

// Documents as a query gives them; Null where the text is "-".
RecordsetPtr Documents(const std::vector<std::array<const char*, 3>>& rows) {
  const RecordsetPtr source = Recordset::New();
  source->Fields().Append("Prefix", adVarChar, 20);
  source->Fields().Append("Refno", adInteger);
  source->Fields().Append("Suffix", adVarChar, 20);
  source->Open();
  for (const auto& row : rows) {
    source->AddNew();
    for (int i = 0; i < 3; ++i) {
      const std::string text = row[static_cast<std::size_t>(i)];
      if (text != "-") source->Set(ColumnHandle{i}, text);
    }
    source->Update();
  }
  source->MoveFirst();
  return source;
}

TEST_F(ReportWriterCells, ADocumentsNumberIsJoinedAndItsPartsAreTwins) {
  static constexpr DocumentNumberColumns kNumber = kCells.DocumentNumber("RefNo");
  const RecordsetPtr source =
      Documents({{"A", "12", "B"}, {"", "12", "X"}, {"-", "7", "-"}, {"-", "-", ""}});
  const DocumentNumberSource from(*source);
  ReportWriter writer(kCells, style);
  for (const auto parts :
       {ReportWriter::NullParts::kStayNull, ReportWriter::NullParts::kBecomeEmpty}) {
    for (const Recordset::Row row : source->Rows()) {
      writer.AddLine(1);
      writer.DocumentNumber(kNumber, row, from, parts);
    }
  }
  std::vector<std::string> lines;
  const RecordsetPtr report = writer.Finish();
  for (const Recordset::Row row : report->Rows()) {
    std::string line;
    for (const char* const name : {"RefNo", "RefNoSort", "PrefixSort", "SuffixSort"}) {
      line += (row[name].IsNull() ? "null" : row[name].ToText()) + "|";
    }
    lines.push_back(line);
  }
  EXPECT_EQ(lines, (std::vector<std::string>{"A-12-B|12|A|B|", "12-X|12||X|", "7|7|null|null|",
                                             "|null|null||", "A-12-B|12|A|B|", "12-X|12||X|",
                                             "7|7|||", "|null|||"}));
}

TEST_F(ReportWriterCells, ACellIsCopiedAsItIs) {
  const RecordsetPtr source = Documents({{"more than 15 letters", "12", "-"}});
  const Recordset::Row row = *source->Rows().begin();
  const RecordsetPtr line = Line([&](ReportWriter& writer) {
    writer.Copy(kCells.At("Qty"), row, source->Column("Prefix"));
    writer.Copy(kCells.Twinned("RefNo"), row, source->Column("Refno"));
    writer.Text(kCells.At("PrefixSort"), "gone");
    writer.Copy(kCells.At("PrefixSort"), row, source->Column("Suffix"));
  });
  EXPECT_EQ(line->Collect("Qty"), Variant("more than 15 letters"));
  EXPECT_EQ(line->Collect("RefNo"), Variant("12"));
  EXPECT_EQ(line->Collect("RefNoSort"), Variant(std::int64_t{12}));
  EXPECT_TRUE(line->Collect("PrefixSort").IsNull());
}

TEST_F(ReportWriterCells, WhatCannotBeShownIsAnError) {
  using Write = void (*)(ReportWriter&, const Variant&);
  for (const Write write : {
           Write([](ReportWriter&w, const Variant&v) { w.Number(kCells.At("Qty"), v); }),
           Write([](ReportWriter&w, const Variant&v) { w.Quantity(kCells.At("Qty"), v, ""); }),
           Write([](ReportWriter&w, const Variant&v) { w.Rate(kCells.At("Qty"), v, ""); }),
           Write([](ReportWriter&w, const Variant&v) { w.Money(kCells.At("Qty"), v); }),
           Write([](ReportWriter&w, const Variant&v) { w.ScaledMoney(kCells.At("Qty"), v); }),
           Write([](ReportWriter&w, const Variant&v) { w.Date(kCells.At("Qty"), v); }),
       }) {
    const auto number = [&](const Variant& value) {
      try {
        (void)Line([&](ReportWriter& writer) { write(writer, value); });
        return ErrorNumber{};
      } catch (const Error& error) {
        return error.Number();
      }
    };
    EXPECT_EQ(number(Null), ErrorNumber::kInvalidUseOfNull);
    EXPECT_EQ(number("none"), ErrorNumber::kTypeMismatch);
  }
}

TEST_F(ReportWriterCells, WhereErrorsArePassedOverTheCellStaysNullAndTheTwinIsWritten) {
  style.pass_over_errors = true;
  const RecordsetPtr line = Line([](ReportWriter& writer) {
    writer.Quantity(kCells.Twinned("Qty"), Null, "Nos");
    writer.Money(kCells.Twinned("Amount"), "no amount");
    writer.Text(kCells.At("PrefixSort"), std::string(256, 'x'));
    writer.Money(kCells.At("Rate"), 1);
  });
  EXPECT_TRUE(line->Collect("Qty").IsNull());
  EXPECT_TRUE(line->Collect("QtySort").IsNull());
  EXPECT_TRUE(line->Collect("Amount").IsNull());
  EXPECT_TRUE(line->Collect("AmountSort").IsNull());
  EXPECT_TRUE(line->Collect("PrefixSort").IsNull());
  EXPECT_EQ(line->Collect("Rate"), Variant("₹1.00"));
}

TEST(ReportWriter, WithoutLinesTheRowsetIsEmptyAndOpen) {
  ReportWriter writer(kColumns, IndianCells());
  const RecordsetPtr report = writer.Finish();
  EXPECT_EQ(report->RecordCount(), 0);
  EXPECT_TRUE(report->Eof());
}

TEST(ReportLayout, SomeCanBeJoined) {
  static constexpr ReportLayout kFirst = {Display("Item")};
  static constexpr ReportLayout kSecond = {Display("Qty"), QuantityTwin("QtySort")};
  static constexpr ReportLayout kBoth = Join(kFirst, kSecond, kFirst);
  static_assert(kBoth.columns.size() == 4);
  static_assert(kBoth.columns[3].name == "Item");
  static_assert(kBoth.Twinned("Qty").twin == ColumnHandle{2});
}

}  // namespace
}  // namespace pstolvane1
