// A report as text.
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "host/TextTable.h"
#include "session/data/Error.h"
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

// Item 4 wide, then with the gap 2 before each: QtyOp 7, UomOp 7, Balance 9, Uom 5, Value 7.
std::string Statement(std::size_t room, const std::vector<std::string>& columns = {}) {
  const RecordsetPtr rowset = Recordset::New();
  for (const char* const name : {"Item", "QtyOp", "UomOp", "Balance", "Uom", "Value"}) {
    rowset->Fields().Append(name, adBSTR);
  }
  rowset->Open();
  rowset->AddNew();
  const char* const cells[] = {"Bolt", "1.00", "Nos", "2.00", "Nos", "₹9.00"};
  for (int i = 0; i < 6; ++i)
    rowset->Collect(rowset->Columns()[static_cast<std::size_t>(i)].name, Variant(cells[i]));
  rowset->Update();
  std::ostringstream out;
  const ReportLook look{"",
                        {},
                        [](std::string_view column) {
                          ColumnLook its;
                          if (column == "Uom") its.unit_of = "Balance";
                          if (column == "UomOp") its.unit_of = "QtyOp";
                          if (column == "Balance") its.telling = 1;
                          if (column == "Value") its.telling = 2;
                          return its;
                        },
                        columns};
  WriteTable(ReportView(*rowset, Locale::Get("en_IN"), look), false, out, room);
  return out.str();
}

TEST(TextTable, TheMostTellingColumnsStandWhereThereIsNoRoomForAll) {
  EXPECT_EQ(Statement(0), Statement(39));
  EXPECT_EQ(Statement(38),
            "Item  Balance  Uom  Value\n"
            "─────────────────────────\n"
            "Bolt     2.00  Nos  ₹9.00\n"
            "No room for: QtyOp, UomOp. --columns\n"
            "chooses, \"all\" shows all.\n");
  EXPECT_TRUE(Statement(25).starts_with("Item  Balance  Uom  Value\n"));
  EXPECT_EQ(Statement(24),
            "Item  Balance  Uom\n"
            "──────────────────\n"
            "Bolt     2.00  Nos\n"
            "No room for: QtyOp,\n"
            "UomOp, Value. --columns\n"
            "chooses, \"all\" shows\n"
            "all.\n");
}

TEST(TextTable, ColumnsAreChosenByName) {
  EXPECT_EQ(Statement(0, {"value", "ITEM"}),
            "Value  Item\n"
            "───────────\n"
            "₹9.00  Bolt\n");
  EXPECT_THROW((void)Statement(0, {"Price"}), Error);
}

// Titles above; heads in as many lines as they need; deeper lines moved in.
TEST(TextTable, HasTitlesAndHeadsInWords) {
  const RecordsetPtr rowset = Recordset::New();
  for (const char* const name : {"Group", "Item", "Qty"}) rowset->Fields().Append(name, adBSTR);
  rowset->Fields().Append("DummySort", adBigInt);
  rowset->Open();
  const auto add = [&](const char* column, const char* text, const char* quantity) {
    rowset->AddNew();
    rowset->Collect(column, Variant(text));
    if (*quantity != 0) rowset->Collect("Qty", Variant(quantity));
    rowset->Update();
  };
  add("Group", "Nuts and everything else", "");
  add("Item", "Nut", "12.00");
  const ReportLook look{"Stock", {"Asha Motors"}, [](std::string_view column) {
                          ColumnLook its;
                          if (column == "Qty") its.label = "Closing quantity of the year";
                          if (column == "Item") its.stands_in = "Group";
                          if (column == "Item") its.level = 1;
                          return its;
                        }};
  std::ostringstream out;
  WriteTable(ReportView(*rowset, Locale::Get("en_IN"), look), false, out, 0);
  EXPECT_EQ(out.str(),
            "Stock\n"
            "Asha Motors\n"
            "\n"
            "        Closing\n"
            "       quantity\n"
            "         of the\n"
            "Group      year\n"
            "───────────────\n"
            "Nuts and everything else\n"
            "  Nut     12.00\n");
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
