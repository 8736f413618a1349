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
