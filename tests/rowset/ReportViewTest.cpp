// What of a rowset a person is shown.
#include <gtest/gtest.h>

#include "session/data/Error.h"
#include "session/rowset/ReportRowset.h"
#include "session/rowset/ReportView.h"

namespace pstolvane1 {
namespace {

using Kind = ReportView::LineKind;
using Names = std::vector<std::string>;

constexpr ReportColumn kViewedColumns[] = {
    Display("Ledger"), Display("Amount"),      Display("Qty"),
    Display("Never"),  Key("Ledger_Id"),       Marker("TotalLine"),
    Marker("GrpLine"), TextTwin("LedgerSort"), NumberTwin("DummySort")};

class ReportViewTest : public testing::Test {
 protected:
  void Add(const std::string& ledger, const std::string& amount, const std::string& quantity,
           const std::string& rule = "") {
    report_->AddNew();
    const auto write = [this](std::string_view column, const std::string& text) {
      if (!text.empty()) report_->Collect(column, Variant(text));
    };
    write("Ledger", ledger);
    write("Amount", amount);
    write("Qty", quantity);
    write("TotalLine", rule);
    report_->Collect("Ledger_Id", 4);
    report_->Collect("DummySort", 1);
    report_->Update();
  }
  [[nodiscard]] ReportView View() const { return {*report_, Locale::Get("en_IN")}; }
  [[nodiscard]] std::vector<Kind> Kinds() const {
    std::vector<Kind> kinds;
    const ReportView view = View();
    for (const ReportView::Line& line : view.Lines()) kinds.push_back(line.kind);
    return kinds;
  }

  RecordsetPtr report_ = NewReportRowset(kViewedColumns);
};

TEST_F(ReportViewTest, TwinsKeysRulesAndColumnsWithoutContentAreNotShown) {
  Add("Cash", "₹5.00", "3.00 Nos");
  Names names;
  std::vector<bool> numeric;
  const ReportView view = View();
  for (const ReportView::Column& column : view.Columns()) {
    names.push_back(column.name);
    numeric.push_back(column.numeric);
  }
  EXPECT_EQ(names, (Names{"Ledger", "Amount", "Qty"}));
  EXPECT_EQ(numeric, (std::vector<bool>{false, true, true}));
  EXPECT_EQ(view.Lines().at(0).cells, (Names{"Cash", "₹5.00", "3.00 Nos"}));
}

TEST_F(ReportViewTest, PercentagesAreNumbers) {
  Add("10.00%", "-100.00%", "24.67% of all");
  const ReportView view = View();
  EXPECT_TRUE(view.Columns().at(0).numeric);
  EXPECT_TRUE(view.Columns().at(1).numeric);
  EXPECT_FALSE(view.Columns().at(2).numeric);
}

// "Total" and its sum have columns of their own in the rowset, which nobody wants to look for.
TEST(ReportViewSums, StandUnderTheirColumns) {
  constexpr ReportColumn kColumns[] = {
      Display("Item"),     Display("Value"),       Display("Total"), Display("TotalValue"),
      Display("GrpValue"), Display("TotalQty"),    Display("Rate"),  Display("TotRate"),
      Marker("TotalLine"), NumberTwin("DummySort")};
  const RecordsetPtr report = NewReportRowset(kColumns);
  const auto add = [&](const std::vector<std::pair<const char*, const char*>>& cells) {
    report->AddNew();
    for (const auto& [column, text] : cells) report->Collect(column, Variant(text));
    report->Update();
  };
  const std::string rule(90, '_');
  add({{"Item", "Engine"}, {"GrpValue", "₹9.00"}});
  add({{"Item", "Bolt"}, {"Value", "₹9.00"}});
  add({{"TotalLine", rule.c_str()}});
  add({{"Total", "Total"},
       {"TotalValue", "₹9.00"},
       {"TotalQty", "3.00"},
       {"TotRate", "2.00"},
       {"TotalLine", rule.c_str()}});
  const ReportView view(*report, Locale::Get("en_IN"));
  Names names;
  for (const ReportView::Column& column : view.Columns()) names.push_back(column.name);
  // Nothing sums up to TotalQty; what sums up to TotRate is empty.
  EXPECT_EQ(names, (Names{"Item", "Value", "TotalQty", "Rate"}));
  EXPECT_TRUE(view.Columns().at(1).numeric);
  EXPECT_EQ(view.Lines().at(0).cells, (Names{"Engine", "₹9.00", "", ""}));
  EXPECT_EQ(view.Lines().at(1).cells, (Names{"Bolt", "₹9.00", "", ""}));
  EXPECT_EQ(view.Lines().at(3).cells, (Names{"Total", "₹9.00", "3.00", "2.00"}));
  EXPECT_EQ(view.Lines().at(3).kind, Kind::kTotal);
}

// The last month's line holds the figures of the month and those of the period.
TEST(ReportViewSums, BesideTheFiguresOfTheLastLineGetALineOfTheirOwn) {
  constexpr ReportColumn kColumns[] = {Display("Month"), Display("QtyIn"), Display("TotalQtyIn"),
                                       NumberTwin("DummySort")};
  const RecordsetPtr report = NewReportRowset(kColumns);
  const auto add = [&](const char* month, const char* in, const char* total) {
    report->AddNew();
    report->Collect("Month", Variant(month));
    report->Collect("QtyIn", Variant(in));
    if (*total != 0) report->Collect("TotalQtyIn", Variant(total));
    report->Update();
  };
  add("February", "5.00", "");
  add("March", "2.00", "7.00");
  const ReportView view(*report, Locale::Get("en_IN"));
  ASSERT_EQ(view.Lines().size(), 4U);
  EXPECT_EQ(view.Lines().at(1).cells, (Names{"March", "2.00"}));
  EXPECT_EQ(view.Lines().at(2).kind, Kind::kRule);
  EXPECT_EQ(view.Lines().at(3).cells, (Names{"Total", "7.00"}));
  EXPECT_EQ(view.Lines().at(3).kind, Kind::kTotal);
}

TEST(ReportViewSums, StayApartWhereALineBeforeTheLastHasBoth) {
  constexpr ReportColumn kColumns[] = {Display("Month"), Display("QtyIn"), Display("TotalQtyIn"),
                                       NumberTwin("DummySort")};
  const RecordsetPtr report = NewReportRowset(kColumns);
  for (const char* const total : {"5.00", "7.00"}) {
    report->AddNew();
    report->Collect("Month", Variant("March"));
    report->Collect("QtyIn", Variant("2.00"));
    report->Collect("TotalQtyIn", Variant(total));
    report->Update();
  }
  const ReportView view(*report, Locale::Get("en_IN"));
  EXPECT_EQ(view.Lines().at(1).cells, (Names{"March", "2.00", "7.00"}));
}

// Heads: a group's name fills the first column, its items stand one deeper in the same column,
// what is told twice is not shown.
TEST(ReportViewLook, PutsColumnsTogetherAndTellsGroupsFromTotals) {
  constexpr ReportColumn kColumns[] = {
      Display("Twice"), Display("Group"),  Display("Item"),     Display("Head"),
      Display("Value"), Marker("GrpLine"), Marker("TotalLine"), NumberTwin("DummySort")};
  const RecordsetPtr report = NewReportRowset(kColumns);
  const auto add = [&](const std::vector<std::pair<const char*, const char*>>& cells) {
    report->AddNew();
    for (const auto& [column, text] : cells) report->Collect(column, Variant(text));
    report->Update();
  };
  const std::string rule(90, '_');
  add({{"Head", "Inwards:"}});
  add({{"Group", "Engine"}, {"Twice", "Engine"}, {"Value", "₹9.00"}, {"GrpLine", rule.c_str()}});
  add({{"Item", "Bolt"}, {"Value", "₹9.00"}});
  add({{"Group", "Labour"}, {"Twice", "Labour"}});
  add({{"TotalLine", rule.c_str()}});
  add({{"Group", "Total"}, {"Value", "₹9.00"}, {"TotalLine", rule.c_str()}});
  const ReportView view(*report, Locale::Get("en_IN"), {"Stock", {}, [](std::string_view column) {
                                                          ColumnLook look;
                                                          look.shown = column != "Twice";
                                                          look.leads = column == "Group";
                                                          if (column == "Group")
                                                            look.label = "Item group";
                                                          if (column == "Item" || column == "Head")
                                                            look.stands_in = "Group";
                                                          if (column == "Item") look.level = 1;
                                                          if (column == "Head")
                                                            look.level = ColumnLook::kHeading;
                                                          return look;
                                                        }});
  ASSERT_EQ(view.Columns().size(), 2U);
  EXPECT_EQ(view.Columns().at(0).label, "Item group");
  EXPECT_EQ(view.Columns().at(1).label, "Value");
  std::vector<Kind> kinds;
  std::vector<int> levels;
  for (const ReportView::Line& line : view.Lines()) {
    kinds.push_back(line.kind);
    levels.push_back(line.level);
  }
  EXPECT_EQ(kinds, (std::vector<Kind>{Kind::kGroup, Kind::kGroup, Kind::kLine, Kind::kLine,
                                      Kind::kRule, Kind::kTotal}));
  EXPECT_EQ(levels, (std::vector<int>{0, 0, 1, 0, 0, 0}));
  EXPECT_EQ(view.Lines().at(2).cells, (Names{"Bolt", "₹9.00"}));
  EXPECT_TRUE(view.Lines().at(0).is_heading);
  EXPECT_FALSE(view.Lines().at(1).is_heading);
}

using Lines = std::vector<std::pair<int, std::string>>;

Lines LevelsOf(const ReportView& view) {
  Lines lines;
  for (const ReportView::Line& line : view.Lines()) {
    lines.emplace_back(line.level, line.cells.front());
  }
  return lines;
}

// 2 stands below 1, with its item; 3 and the group in a circle outermost; the total stays last.
TEST(ReportViewLook, PutsGroupsBelowTheOnesThatTheyBelongTo) {
  constexpr ReportColumn kColumns[] = {Display("Group"), Display("Item"), Key("Group_Id"),
                                       Marker("TotalLine"), NumberTwin("DummySort")};
  const RecordsetPtr report = NewReportRowset(kColumns);
  const auto add = [&](const char* column, const char* text, std::int32_t key) {
    report->AddNew();
    report->Collect(column, Variant(text));
    if (key > 0) report->Collect("Group_Id", key);
    report->Update();
  };
  add("Group", "Bolts", 2);
  add("Item", "M8", 2);
  add("Group", "Circle", 4);
  add("Group", "Parts", 1);
  add("Group", "Vehicles", 3);
  add("TotalLine", "____", 0);
  add("Group", "Total", 0);
  ReportLook look{"Stock", {}, [](std::string_view column) {
                    ColumnLook its;
                    if (column == "Item") its.stands_in = "Group";
                    if (column == "Item") its.level = 1;
                    return its;
                  }};
  look.group_key = "Group_Id";
  look.group_above = [](std::int64_t key) { return key == 2 ? 1 : key == 4 ? 4 : 0; };
  const ReportView view(*report, Locale::Get("en_IN"), look);
  EXPECT_EQ(LevelsOf(view), (Lines{{0, "Circle"},
                                   {0, "Parts"},
                                   {1, "Bolts"},
                                   {2, "M8"},
                                   {0, "Vehicles"},
                                   {0, ""},
                                   {0, "Total"}}));
  EXPECT_EQ(view.Lines().at(1).kind, Kind::kGroup);
  EXPECT_EQ(view.Lines().at(4).kind, Kind::kLine);
}

// A mark for each level, of which a name has at most one more than the name above it.
TEST(ReportViewLook, TakesTheMarksOfDepthFromNames) {
  constexpr ReportColumn kColumns[] = {Display("Group"), Display("Item"), NumberTwin("DummySort")};
  const RecordsetPtr report = NewReportRowset(kColumns);
  const auto add = [&](const char* column, const char* text) {
    report->AddNew();
    report->Collect(column, Variant(text));
    report->Update();
  };
  add("Group", "-Odd");
  add("Group", "Parts");
  add("Item", "  Bolt");
  add("Group", "-Body");
  add("Item", "   Door");
  add("Group", "--Hinges");
  add("Group", "-Brakes");
  const ReportView view(*report, Locale::Get("en_IN"), {"Sales", {}, [](std::string_view column) {
                                                          ColumnLook its;
                                                          if (column == "Group") {
                                                            its.leads = true;
                                                            its.depth_mark = '-';
                                                          } else {
                                                            its.stands_in = "Group";
                                                            its.level = 1;
                                                          }
                                                          return its;
                                                        }});
  EXPECT_EQ(LevelsOf(view), (Lines{{0, "-Odd"},
                                   {0, "Parts"},
                                   {1, "Bolt"},
                                   {1, "Body"},
                                   {2, "Door"},
                                   {2, "Hinges"},
                                   {1, "Brakes"}}));
}

TEST(ReportViewLook, NamesACellWithAnEmptyTextAndNoneThatIsNull) {
  constexpr ReportColumn kColumns[] = {Display("Head"), Display("Day"), NumberTwin("DummySort")};
  const RecordsetPtr report = NewReportRowset(kColumns);
  report->AddNew();
  report->Collect("Head", Variant(""));
  report->Update();
  report->AddNew();
  report->Collect("Day", Variant("Monday"));
  report->Update();
  const ReportView view(*report, Locale::Get("en_IN"), {"Days", {}, [](std::string_view column) {
                                                          ColumnLook its;
                                                          if (column == "Head") {
                                                            its.nameless = "All days";
                                                          }
                                                          return its;
                                                        }});
  EXPECT_EQ(view.Lines().at(0).cells, (Names{"All days", ""}));
  EXPECT_EQ(view.Lines().at(1).cells, (Names{"", "Monday"}));
}

TEST_F(ReportViewTest, ColumnsAreThoseThatTheLookNames) {
  Add("Wheels", "", "");
  Add("Bolt", "₹5.00", "3.00 Nos");
  const auto view = [&](const Names& columns) {
    ReportLook look;
    look.columns = columns;
    return ReportView(*report_, Locale::Get("en_IN"), look);
  };
  const ReportView turned = view({"QTY", "ledger"});
  EXPECT_EQ(turned.Columns().at(0).name, "Qty");
  EXPECT_EQ(turned.Lines().at(0).cells, (Names{"", "Wheels"}));
  EXPECT_FALSE(turned.Lines().at(0).is_heading);
  EXPECT_EQ(turned.Lines().at(1).cells, (Names{"3.00 Nos", "Bolt"}));
  ReportView::Line deep = turned.Lines().at(1);
  deep.level = 2;
  EXPECT_EQ(turned.IndentOf(deep, 0), 0);
  EXPECT_EQ(turned.IndentOf(deep, 1), 2);
  EXPECT_TRUE(view({"Ledger", "Qty"}).Lines().at(0).is_heading);
  EXPECT_EQ(view({"Amount"}).Lines().size(), 1U) << "a line without any of them is left out";
  try {
    (void)view({"Amount", "Price"});
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kArgumentOutOfRange);
    EXPECT_EQ(error.Description(),
              "the report shows no column \"Price\"; it shows Ledger, Amount, Qty");
  }
}

TEST_F(ReportViewTest, LinesAreToldApart) {
  const std::string rule(90, '_');
  Add("Cash", "₹5.00", "");
  Add("", "", "");
  Add("", "", "", rule);
  Add("Total", "₹5.00", "", rule);
  EXPECT_EQ(Kinds(), (std::vector<Kind>{Kind::kLine, Kind::kSpacer, Kind::kRule, Kind::kTotal}));
}

TEST_F(ReportViewTest, OneTextThatIsNoNumberMakesItsColumnText) {
  Add("Cash", "₹5.00", "3.00");
  Add("Bank", "none", "4.00");
  const ReportView view = View();
  EXPECT_FALSE(view.Columns().at(1).numeric);
  EXPECT_TRUE(view.Columns().at(2).numeric);
}

TEST_F(ReportViewTest, AnEmptyReportHasNoColumnsAndNoLines) {
  EXPECT_TRUE(View().Columns().empty());
  EXPECT_TRUE(View().Lines().empty());
}

TEST(ReportViewOfAQuery, ShowsAllColumnsWithContent) {
  const RecordsetPtr rowset = Recordset::New();
  rowset->Fields().Append("Id", adInteger);
  rowset->Fields().Append("NameSort", adBSTR);
  rowset->Open();
  rowset->AddNew();
  rowset->Collect("Id", 4);
  rowset->Collect("NameSort", "x");
  rowset->Update();
  const ReportView view(*rowset, Locale::Get("en_IN"));
  EXPECT_EQ(view.Columns().size(), 2U);
  EXPECT_EQ(view.Lines().at(0).cells, (Names{"4", "x"}));
}

}  // namespace
}  // namespace pstolvane1
