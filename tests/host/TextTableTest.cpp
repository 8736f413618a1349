// A report as text.
#include <gtest/gtest.h>
#include <sstream>

#include "host/TextTable.h"
#include "session/data/Recordset.h"
#include "session/rowset/Locale.h"
#include "session/rowset/ReportView.h"

namespace pstolvane1::host {
namespace {

RecordsetPtr Report() {
  RecordsetPtr rowset = Recordset::New();
  rowset->Fields().Append("Name", adBSTR);
  rowset->Fields().Append("Empty", adBSTR);
  rowset->Fields().Append("Amount", adBSTR);
  rowset->Fields().Append("TotalLine", adBSTR);
  rowset->Fields().Append("NameSort", adVarChar, 255, adFldIsNullable);
  rowset->Fields().Append("DummySort", adBigInt, 0, adFldIsNullable);
  rowset->Open();
  const auto add = [&](std::string_view name, std::string_view amount, bool rule) {
    rowset->AddNew();
    if (!name.empty()) rowset->Collect("Name", Variant(std::string(name)));
    if (!amount.empty()) rowset->Collect("Amount", Variant(std::string(amount)));
    if (rule) rowset->Collect("TotalLine", Variant(std::string(90, '_')));
    rowset->Update();
  };
  add("रमेश", "₹9.00", false);
  add("漢字", "₹1,234.50", false);
  add("", "", true);
  add("Total", "₹1,243.50", true);
  return rowset;
}

std::string Table(const RecordsetPtr& rowset, bool colour) {
  std::ostringstream out;
  WriteTable(ReportView(*rowset, Locale::Get("en_IN")), colour, out);
  return out.str();
}

TEST(TextTable, ShowsColumnsWithContentNumbersToTheRightAndRulesDrawn) {
  EXPECT_EQ(Table(Report(), false),
            "Name      Amount\n"
            "────────────────\n"
            "रमेश        ₹9.00\n"
            "漢字   ₹1,234.50\n"
            "────────────────\n"
            "Total  ₹1,243.50\n"
            "════════════════\n");
}

TEST(TextTable, ColoursOnlyWhereItIsAsked) {
  EXPECT_EQ(Table(Report(), false).find('\x1b'), std::string::npos);
  EXPECT_NE(Table(Report(), true).find('\x1b'), std::string::npos);
}

TEST(TextTable, WidthsAreThoseOfATerminal) {
  EXPECT_EQ(DisplayWidth("abc"), 3U);
  EXPECT_EQ(DisplayWidth("漢字"), 4U);
  EXPECT_EQ(DisplayWidth("e\xCC\x81"), 1U);
  EXPECT_EQ(DisplayWidth("₹"), 1U);
  EXPECT_EQ(DisplayWidth("\xFF"), 1U);
}

}  // namespace
}  // namespace pstolvane1::host
