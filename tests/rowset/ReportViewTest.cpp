// What of a rowset a person is shown.
#include <gtest/gtest.h>

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
      Display("Item"),     Display("Value"),    Display("Total"),    Display("TotalValue"),
      Display("GrpValue"), Display("TotalQty"), Marker("TotalLine"), NumberTwin("DummySort")};
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
       {"TotalLine", rule.c_str()}});
  const ReportView view(*report, Locale::Get("en_IN"));
  Names names;
  for (const ReportView::Column& column : view.Columns()) names.push_back(column.name);
  EXPECT_EQ(names, (Names{"Item", "Value", "TotalQty"}));  // nothing sums up to TotalQty
  EXPECT_TRUE(view.Columns().at(1).numeric);
  EXPECT_EQ(view.Lines().at(0).cells, (Names{"Engine", "₹9.00", ""}));
  EXPECT_EQ(view.Lines().at(1).cells, (Names{"Bolt", "₹9.00", ""}));
  EXPECT_EQ(view.Lines().at(3).cells, (Names{"Total", "₹9.00", "3.00"}));
  EXPECT_EQ(view.Lines().at(3).kind, Kind::kTotal);
}

// The last month's line holds the figures of the month and those of the period.
TEST(ReportViewSums, StayApartWhereALineHasBoth) {
  constexpr ReportColumn kColumns[] = {Display("Month"), Display("QtyIn"), Display("TotalQtyIn"),
                                       NumberTwin("DummySort")};
  const RecordsetPtr report = NewReportRowset(kColumns);
  report->AddNew();
  report->Collect("Month", Variant("March"));
  report->Collect("QtyIn", Variant("2.00"));
  report->Collect("TotalQtyIn", Variant("7.00"));
  report->Update();
  const ReportView view(*report, Locale::Get("en_IN"));
  EXPECT_EQ(view.Lines().at(0).cells, (Names{"March", "2.00", "7.00"}));
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
