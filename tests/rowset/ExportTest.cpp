// Rowsets as files.
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/resource.h>
#include <unistd.h>

#include "session/data/Error.h"
#include "session/rowset/Export.h"

namespace pstolvane1 {
namespace {

const std::shared_ptr<const Locale> kIndia = Locale::Get("en_IN");

// One column of every type.
RecordsetPtr AllTypes() {
  RecordsetPtr rowset = Recordset::New();
  const std::pair<const char*, DataType> columns[] = {
      {"Whole", adInteger}, {"Single", adSingle}, {"Double", adDouble}, {"Money", adCurrency},
      {"Day", adDate},      {"Text", adBSTR},     {"Flag", adBoolean},  {"Big", adBigInt}};
  for (const auto& [name, type] : columns) rowset->Fields().Append(name, type);
  rowset->Fields().Append("Name", adVarChar, 20, adFldIsNullable);
  rowset->Open();
  rowset->AddNew();
  rowset->Collect("Whole", -7);
  rowset->Collect("Single", 0.1F);
  rowset->Collect("Double", 0.1);
  rowset->Collect("Money", Currency::FromText("-1234.5"));
  rowset->Collect("Day", Date::FromYmdHms(2004, 3, 31, 14, 5, 9));
  rowset->Collect("Text", "a \"b\", c\r\nd <&> ₹");
  rowset->Collect("Flag", Boolean(true));
  rowset->Collect("Big", std::int64_t{9007199254740993});
  rowset->Collect("Name", "");
  rowset->Update();
  rowset->AddNew();
  rowset->Update();
  return rowset;
}

RecordsetPtr Report() {
  RecordsetPtr report = Recordset::New();
  for (const char* const name : {"Ledger", "Amount", "TotalLine"}) {
    report->Fields().Append(name, adBSTR);
  }
  report->Fields().Append("AmountSort", adCurrency, 0, adFldIsNullable);
  report->Fields().Append("DummySort", adBigInt, 0, adFldIsNullable);
  report->Open();
  const std::string rule(90, '_');
  const auto add = [&](const Variant& ledger, const Variant& amount, const Variant& line) {
    report->AddNew();
    report->Collect("Ledger", ledger);
    report->Collect("Amount", amount);
    report->Collect("TotalLine", line);
    report->Collect("AmountSort", Currency::FromDouble(1));
    report->Collect("DummySort", 1);
    report->Update();
  };
  add("A & B <Sons>", "₹1,234.50", Variant(Null));
  add(Variant(Null), Variant(Null), Variant(Null));
  add("Cash", "-₹34.50", Variant(Null));
  add(Variant(Null), Variant(Null), rule);
  add("Total", "₹1,200.00", rule);
  return report;
}

std::string Csv(const Recordset& rowset) {
  std::ostringstream out;
  ExportCsv(rowset, out);
  return out.str();
}

TEST(ExportCsv, QuotesWhatNeedsItAndKeepsNullAndEmptyApart) {
  EXPECT_EQ(Csv(*AllTypes()),
            "Whole,Single,Double,Money,Day,Text,Flag,Big,Name\r\n"
            "-7,0.1,0.1,-1234.5000,2004-03-31 14:05:09,\"a \"\"b\"\", c\r\nd <&> ₹\",-1,"
            "9007199254740993,\"\"\r\n"
            ",,,,,,,,\r\n");
}

TEST(ExportCsv, WritesTheVisibleRowsInTheirOrderAndLeavesThePosition) {
  const RecordsetPtr report = Report();
  report->Sort("Ledger DESC");
  report->Filter("Ledger LIKE '*a*'");
  report->MoveLast();
  const Variant before = report->Collect("Ledger");
  EXPECT_EQ(Csv(*report),
            "Ledger,Amount,TotalLine,AmountSort,DummySort\r\nTotal,\"₹1,200.00\"," +
                std::string(90, '_') +
                ",1.0000,1\r\nCash,-₹34.50,,1.0000,1\r\nA & B <Sons>,\"₹1,234.50\",,1.0000,1\r\n");
  EXPECT_EQ(report->Collect("Ledger"), before);
}

TEST(ExportJson, GivesEveryColumnWithItsTypeAndExactValues) {
  EXPECT_EQ(
      ExportJson(*AllTypes()),
      R"({"columns":[{"name":"Whole","type":3,"attributes":-1},)"
      R"({"name":"Single","type":4,"attributes":-1},{"name":"Double","type":5,"attributes":-1},)"
      R"({"name":"Money","type":6,"attributes":-1},{"name":"Day","type":7,"attributes":-1},)"
      R"({"name":"Text","type":8,"attributes":-1},{"name":"Flag","type":11,"attributes":-1},)"
      R"({"name":"Big","type":20,"attributes":-1},{"name":"Name","type":200,"attributes":32}],)"
      R"("rows":[[-7,0.1,0.1,"-1234.5000","2004-03-31 14:05:09","a \"b\", c\r\nd <&> ₹",)"
      "true,9007199254740993,\"\"],\n"
      R"([null,null,null,null,null,null,null,null,null]]})");
}

TEST(ExportJson, AnEmptyRowsetHasItsColumns) {
  RecordsetPtr empty = Recordset::New();
  empty->Fields().Append("A", adInteger);
  empty->Open();
  EXPECT_EQ(ExportJson(*empty), R"({"columns":[{"name":"A","type":3,"attributes":-1}],"rows":[]})");
  EXPECT_EQ(Csv(*empty), "A\r\n");
}

TEST(ExportHtml, ShowsWhatAPersonIsShownAndEscapesIt) {
  std::ostringstream out;
  ExportHtml(*Report(), "Sales & more", kIndia, out);
  const std::string page = out.str();
  EXPECT_TRUE(page.starts_with("<!doctype html>"));
  EXPECT_NE(page.find("<title>Sales &amp; more</title>"), std::string::npos);
  EXPECT_NE(page.find("<thead><tr><th scope=\"col\">Ledger</th><th class=\"n\" "
                      "scope=\"col\">Amount</th></tr></thead>\n"
                      "<tbody>\n"
                      "<tr class=\"line\"><td>A &amp; B &lt;Sons&gt;</td><td "
                      "class=\"n\">₹1,234.50</td></tr>\n"
                      "<tr class=\"spacer\"><td></td><td class=\"n\"></td></tr>\n"
                      "<tr class=\"line\"><td>Cash</td><td class=\"n\">-₹34.50</td></tr>\n"
                      "<tr class=\"rule\"><td></td><td class=\"n\"></td></tr>\n"
                      "<tr class=\"total\"><td>Total</td><td class=\"n\">₹1,200.00</td></tr>\n"
                      "</tbody>"),
            std::string::npos)
      << page;
  EXPECT_EQ(page.find("AmountSort"), std::string::npos);
}

// A part of a workbook, read by the archive's own program.
std::string PartOf(const std::string& workbook, const std::string& part) {
  const std::string command = "unzip -p '" + workbook + "' " + part;
  std::FILE* const pipe = popen(command.c_str(), "r");
  std::string text;
  std::array<char, 4096> buffer{};
  for (std::size_t got = 0; (got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
    text.append(buffer.data(), got);
  }
  EXPECT_EQ(pclose(pipe), 0);
  return text;
}

TEST(ExportXlsx, HoldsAmountsAsNumbersAndTextsAsTexts) {
  const std::string file = testing::TempDir() + "report_" + std::to_string(getpid()) + ".xlsx";
  ExportXlsx(*Report(), "Sales", kIndia, file);
  const std::string sheet = PartOf(file, "xl/worksheets/sheet1.xml");
  const std::string texts = PartOf(file, "xl/sharedStrings.xml");
  EXPECT_NE(PartOf(file, "xl/workbook.xml").find("<sheet name=\"Sales\""), std::string::npos);
  EXPECT_NE(PartOf(file, "xl/styles.xml").find("&quot;₹&quot;#,##,##0.00"), std::string::npos);
  EXPECT_NE(texts.find("<si><t>A &amp; B &lt;Sons&gt;</t></si>"), std::string::npos) << texts;
  for (const char* const cell : {"<v>1234.5</v>", "<v>-34.5</v>", "<v>1200</v>"}) {
    EXPECT_NE(sheet.find(cell), std::string::npos) << sheet;
  }
  EXPECT_EQ(texts.find("AmountSort"), std::string::npos);
  std::filesystem::remove(file);
}

// A report of two items, one under each kind of line, with its words.
RecordsetPtr Grouped() {
  RecordsetPtr report = Recordset::New();
  for (const char* const name : {"Group", "Item", "Qty", "Perc", "Day", "Value", "TotalLine"}) {
    report->Fields().Append(name, adBSTR);
  }
  report->Fields().Append("DummySort", adBigInt, 0, adFldIsNullable);
  report->Open();
  const auto add = [&](const std::vector<std::pair<const char*, std::string>>& cells) {
    report->AddNew();
    for (const auto& [column, text] : cells) report->Collect(column, Variant(text));
    report->Update();
  };
  const std::string rule(90, '_');
  add({{"Group", "Bolts; and \"nuts\""}});
  add({{"Item", "Bolt"},
       {"Qty", "12.50 Nos"},
       {"Perc", "20.60%"},
       {"Day", "31/03/2004"},
       {"Value", "₹1,23,456.50"}});
  add({{"TotalLine", rule}});
  add({{"Group", "Total"}, {"Value", "₹1,23,456.50"}, {"TotalLine", rule}});
  return report;
}

ReportLook WithWords() {
  return {"Stock", {"Asha Motors", "01/04/2003 to 31/03/2004"}, [](std::string_view column) {
            ColumnLook look;
            if (column == "Item") {
              look.stands_in = "Group";
              look.level = 1;
            }
            if (column == "Qty") look.label = "Closing quantity";
            return look;
          }};
}

TEST(ExportHtml, HasItsTitlesLabelsAndGroups) {
  std::ostringstream out;
  ExportHtml(*Grouped(), WithWords(), kIndia, out);
  const std::string page = out.str();
  for (const char* const part :
       {"<h1>Stock</h1>\n<p>Asha Motors</p>\n<p>01/04/2003 to 31/03/2004</p>",
        ">Closing quantity</th>", "<tr class=\"group\"><td>Bolts; and &quot;nuts&quot;</td>",
        "<tr class=\"line\"><td style=\"padding-left:2.5em\">Bolt</td>",
        "<tr class=\"total\"><td>Total</td>", "size:A4 landscape",
        "thead{display:table-header-group}"}) {
    EXPECT_NE(page.find(part), std::string::npos) << part << '\n' << page;
  }
}

TEST(ExportXlsx, HoldsPercentagesDatesAndQuantitiesAsNumbersAndFoldsItsGroups) {
  const std::string file = testing::TempDir() + "grouped_" + std::to_string(getpid()) + ".xlsx";
  ExportXlsx(*Grouped(), WithWords(), kIndia, file);
  const std::string sheet = PartOf(file, "xl/worksheets/sheet1.xml");
  const std::string styles = PartOf(file, "xl/styles.xml");
  // The heads stand in row 5, below the titles and an empty one. 38077 is 31 March 2004.
  for (const char* const part :
       {"<v>12.5</v>", "<v>0.206</v>", "<v>38077</v>", "<v>123456.5</v>",
        "<pane xSplit=\"1\" ySplit=\"5\"", "<autoFilter ref=\"A5:E7\"/>",
        "<row r=\"7\" spans=\"1:5\" outlineLevel=\"1\"", "summaryBelow=\"0\"",
        "orientation=\"landscape\"", "fitToHeight=\"0\""}) {
    EXPECT_NE(sheet.find(part), std::string::npos) << part << '\n' << sheet;
  }
  for (const char* const part :
       {"#,##,##0.00&quot; Nos&quot;", "yyyy\\-mm\\-dd", "&quot;₹&quot;#,##,##0.00"}) {
    EXPECT_NE(styles.find(part), std::string::npos) << part << '\n' << styles;
  }
  std::filesystem::remove(file);
}

TEST(ExportXlsx, HoldsTheValuesOfAQueryWithTheirTypes) {
  const std::string file = testing::TempDir() + "types_" + std::to_string(getpid()) + ".xlsx";
  ExportXlsx(*AllTypes(), "Query", kIndia, file);
  const std::string sheet = PartOf(file, "xl/worksheets/sheet1.xml");
  // 31 March 2004, 14:05:09; a flag; a number beyond what a sheet holds stays a text.
  for (const char* const part :
       {"<v>-7</v>", "<v>-1234.5</v>", "<v>38077.586", "t=\"b\"><v>1</v>"}) {
    EXPECT_NE(sheet.find(part), std::string::npos) << part << '\n' << sheet;
  }
  EXPECT_NE(PartOf(file, "xl/sharedStrings.xml").find("9007199254740993"), std::string::npos);
  std::filesystem::remove(file);
}

TEST(ExportSheet, HasShownColumnsWithPlainValues) {
  std::ostringstream out;
  ExportSheet(*Grouped(), WithWords(), kIndia, {}, out);
  EXPECT_EQ(out.str(),
            "Group,Closing quantity,Perc,Day,Value\r\n"
            "\"Bolts; and \"\"nuts\"\"\",,,,\r\n"
            "Bolt,12.5,20.6,2004-03-31,123456.5\r\n"
            "Total,,,,123456.5\r\n");
  std::ostringstream marked;
  ExportSheet(*Grouped(), WithWords(), kIndia, {.separator = ";", .byte_order_mark = true}, marked);
  EXPECT_TRUE(marked.str().starts_with("\xEF\xBB\xBFGroup;Closing quantity;")) << marked.str();
}

TEST(ExportRecords, AreObjectsWithNumbersAsNumbers) {
  std::ostringstream out;
  ExportRecords(*Grouped(), WithWords(), kIndia, out);
  EXPECT_EQ(
      out.str(),
      R"({"kind":"group","level":0,"Group":"Bolts; and \"nuts\"","Qty":null,"Perc":null,"Day":null,"Value":null})"
      "\n"
      R"({"kind":"line","level":1,"Group":"Bolt","Qty":12.5,"Perc":20.6,"Day":"2004-03-31","Value":123456.5})"
      "\n"
      R"({"kind":"total","level":0,"Group":"Total","Qty":null,"Perc":null,"Day":null,"Value":123456.5})"
      "\n");
  std::ostringstream query;
  ExportRecords(*AllTypes(), {}, kIndia, query);
  EXPECT_TRUE(query.str().starts_with(R"({"Whole":-7,"Single":0.1,"Double":0.1,"Money":-1234.5,)"
                                      R"("Day":"2004-03-31 14:05:09",)"))
      << query.str();
  EXPECT_NE(query.str().find(R"("Flag":true)"), std::string::npos);
}

TEST(ExportXlsx, AFileThatCannotBeWrittenIsNamed) {
  try {
    ExportXlsx(*Report(), "Sales", kIndia, "/nowhere/report.xlsx");
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kArgumentOutOfRange);
    EXPECT_NE(error.Description().find("/nowhere/report.xlsx"), std::string::npos);
  }
}

// Files of the process may not become larger while the object lives; a try to is no signal.
class SmallFiles {
 public:
  explicit SmallFiles(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{.rlim_cur = bytes, .rlim_max = before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
  }
  ~SmallFiles() {
    std::signal(SIGXFSZ, handler_);
    setrlimit(RLIMIT_FSIZE, &before_);
  }
  SmallFiles(const SmallFiles&) = delete;
  SmallFiles& operator=(const SmallFiles&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int) = nullptr;
};

std::string ErrorOf(const std::function<void()>& work) {
  try {
    work();
    return "no error";
  } catch (const Error& error) {
    return std::to_string(static_cast<int>(error.Number())) + " " + error.Description();
  }
}

// Packed a tenth of this is left, so that the workbook itself has room.
TEST(ExportXlsx, APartThatFindsNoRoomIsAnError) {
  RecordsetPtr long_one = Recordset::New();
  long_one->Fields().Append("Number", adInteger);
  long_one->Open();
  for (int i = 0; i < 10'000; ++i) {
    long_one->AddNew();
    long_one->Collect("Number", i % 10);
    long_one->Update();
  }
  std::ostringstream none, whole;
  const std::string folder = std::filesystem::temp_directory_path().string();
  const std::string file = folder + "/report_" + std::to_string(getpid()) + ".xlsx";
  {
    const SmallFiles small(100'000);
    const std::string why = ": there is no room in \"" + folder + "\", where its parts are made";
    EXPECT_EQ(ErrorOf([&] { ExportXlsx(*long_one, "Long", kIndia, none); }),
              "3001 cannot write the workbook" + why);
    EXPECT_EQ(ErrorOf([&] { ExportXlsx(*long_one, "Long", kIndia, file); }),
              "3001 cannot write \"" + file + "\"" + why);
  }
  EXPECT_EQ(none.str(), "");
  EXPECT_FALSE(std::filesystem::exists(file));
  ExportXlsx(*long_one, "Long", kIndia, whole);
  EXPECT_TRUE(whole.str().starts_with("PK"));
  EXPECT_GT(whole.str().size(), 10'000U);
  EXPECT_LT(whole.str().size(), 100'000U);
}

TEST(ExportXlsx, ADeviceThatTakesNothingStaysWhereItIs) {
  EXPECT_EQ(ErrorOf([&] { ExportXlsx(*Report(), "Sales", kIndia, "/dev/full"); }),
            "3001 cannot write \"/dev/full\": No space left on device");
  EXPECT_TRUE(std::filesystem::exists("/dev/full"));
}

TEST(Export, AClosedRowsetIsAnError) {
  const RecordsetPtr closed = Recordset::New();
  EXPECT_THROW((void)ExportJson(*closed), Error);
}

// Whoever shows a rowset says in which locale.
TEST(Export, WithoutALocaleItIsAnError) {
  std::ostringstream out;
  const auto number = [](const auto& work) {
    try {
      work();
    } catch (const Error& error) {
      return error.Number();
    }
    return ErrorNumber{};
  };
  const RecordsetPtr report = Report();
  EXPECT_EQ(number([&] { ExportHtml(*report, "Sales", nullptr, out); }),
            ErrorNumber::kObjectNotSet);
  EXPECT_EQ(number([&] { ExportXlsx(*report, "Sales", nullptr, "/tmp/none.xlsx"); }),
            ErrorNumber::kObjectNotSet);
  EXPECT_EQ(out.str(), "");
}

// Opening 10, in 5, out 4 and closing 21 in the place of 11: the opening counts twice.
TEST(Export, AClosingQuantityThatDoesNotFollowHasANote) {
  RecordsetPtr report = Recordset::New();
  report->Fields().Append("ItemName", adBSTR);
  for (const char* const name : {"QtyOpSort", "QtyInSort", "QtyOutSort", "QtyClSort"}) {
    report->Fields().Append(name, adSingle, 0, adFldIsNullable);
  }
  report->Fields().Append("DummySort", adBigInt, 0, adFldIsNullable);
  report->Open();
  const auto add = [&](const char* name, float closing, float opening = 10) {
    report->AddNew();
    report->Collect("ItemName", Variant(name));
    report->Collect("QtyOpSort", opening);
    report->Collect("QtyInSort", 5.0F);
    report->Collect("QtyOutSort", 4.0F);
    report->Collect("QtyClSort", closing);
    report->Update();
  };
  add("Bolt", 11);
  add("Sold before it came", -29, -30);
  std::ostringstream balanced, unbalanced;
  ExportHtml(*report, "Stock", kIndia, balanced);
  EXPECT_EQ(balanced.str().find("class=\"note\""), std::string::npos);
  add("Nut", 21);
  ExportHtml(*report, "Stock", kIndia, unbalanced);
  EXPECT_NE(unbalanced.str().find("<p class=\"note\">In 1 line the closing quantity is not opening "
                                  "plus inwards less outwards"),
            std::string::npos);
}

}  // namespace
}  // namespace pstolvane1
