// Reports as files of pages, as other programs read them.
#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

#include "host/print/ExportPdf.h"
#include "session/data/Error.h"
#include "tests/CommandOutput.h"

namespace pstolvane1::print {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

const std::shared_ptr<const Locale> kIndia = Locale::Get("en_IN");

using Cells = std::vector<std::string>;

// A report of texts: "" is Null, and "_" in the last column a rule.
class Report {
 public:
  explicit Report(const Cells& columns) : columns_(columns) {
    columns_.emplace_back("TotalLine");
    for (const std::string& column : columns_) rowset_->Fields().Append(column, adBSTR);
    rowset_->Fields().Append("DummySort", adBigInt, 0, adFldIsNullable);
    rowset_->Open();
  }
  void Add(const Cells& cells, bool rule = false) {
    rowset_->AddNew();
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (!cells[i].empty()) rowset_->Collect(columns_[i], Variant(cells[i]));
    }
    if (rule) rowset_->Collect("TotalLine", std::string(90, '_'));
    rowset_->Update();
  }
  [[nodiscard]] const Recordset& Rowset() const { return *rowset_; }

 private:
  Cells columns_;
  RecordsetPtr rowset_ = Recordset::New();
};

ReportLook Look() { return {"Stock by item", {"Asha Motors", "2004-05 · printed 01/04/2005"}}; }

PrintStyle Style() {
  return {.company = {.CompanyName = "Asha Motors",
                      .CompanyAddress1 = "12, Mahatma Gandhi Road",
                      .CompanyAddress2 = "Nizamabad 503001",
                      .CompanyPanNo = "AAAPL1234C",
                      .CompanySalesTaxNo = "36/1/0042",
                      .CompanySalesTaxNo2 = "36/C/0042"},
          .day = "2005-04-01"};
}

// A printed report in a file, and what is read from it.
class Printed {
 public:
  explicit Printed(const Recordset& rowset, const ReportLook& look = Look(),
                   const PrintStyle& style = Style())
      : path_(testing::TempDir() + "printed_" + std::to_string(getpid()) + ".pdf") {
    std::ofstream file(path_, std::ios::binary);
    ExportPdf(rowset, look, kIndia, style, file);
  }
  ~Printed() { std::filesystem::remove(path_); }
  Printed(const Printed&) = delete;
  Printed& operator=(const Printed&) = delete;

  // The text as it stands on the paper.
  [[nodiscard]] std::string Page(int page) const {
    return CommandOutput(fmt::format("pdftotext -layout -f {0} -l {0} {1} -", page, path_));
  }
  [[nodiscard]] std::string Marked() const {
    return CommandOutput("pdftohtml -xml -i -stdout " + path_);
  }
  [[nodiscard]] std::string About() const { return CommandOutput("pdfinfo " + path_); }
  [[nodiscard]] std::string Fonts() const { return CommandOutput("pdffonts " + path_); }
  // How many lines are drawn on the first page: runs of dark rows of points that reach over most of
  // what is inked at all.
  [[nodiscard]] int DrawnLines() const {
    std::istringstream picture(CommandOutput("pdftoppm -gray -r 144 -f 1 -l 1 " + path_));
    std::string kind;
    std::size_t width = 0, height = 0, white = 0;
    picture >> kind >> width >> height >> white;
    picture.get();
    std::vector<std::size_t> runs(height);
    std::string row(width, '\0');
    for (std::size_t& longest : runs) {
      picture.read(row.data(), static_cast<std::streamsize>(width));
      std::size_t run = 0;
      for (const char point : row) {
        run = static_cast<unsigned char>(point) < 240 ? run + 1 : 0;
        longest = std::max(longest, run);
      }
    }
    const std::size_t table = *std::ranges::max_element(runs);
    int lines = 0;
    for (std::size_t y = 1; y < height; ++y) {
      if (runs[y] * 10 > table * 9 && runs[y - 1] * 10 <= table * 9) ++lines;
    }
    return lines;
  }

 private:
  std::string path_;
};

// The line that has the word.
std::string LineWith(const std::string& text, const std::string& word) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.find(word) != std::string::npos) return line;
  }
  return {};
}

Report Statement() {
  Report report({"Item", "Quantity", "Value"});
  report.Add({"Spare parts"}, true);
  report.Add({"Brake shoe", "12.00 Nos", "₹1,23,456.50"});
  report.Add({"पेट्रोल क्षेत्र", "-3.50 Ltr", "-₹34.50"});
  report.Add({}, true);
  report.Add({"Total", "", "₹1,23,422.00"}, true);
  return report;
}

TEST(ExportPdf, APageSaysWhoseBooksWhatWhenAndWhichPage) {
  const Printed printed(Statement().Rowset());
  const std::string page = printed.Page(1);
  for (const char* const part :
       {"Asha Motors\n", "12, Mahatma Gandhi Road", "Nizamabad 503001",
        "PAN AAAPL1234C · Sales tax no. 36/1/0042 · Sales tax no. 36/C/0042", "Stock by item\n",
        "2004-05 · printed 01/04/2005", "Page 1 of 1"}) {
    EXPECT_THAT(page, HasSubstr(part));
  }
  EXPECT_EQ(page.find("Asha Motors"), page.rfind("Asha Motors"));
  EXPECT_THAT(page, ContainsRegex("Item +Quantity +Value\n"));
  EXPECT_THAT(printed.About(), HasSubstr("Stock by item"));
  EXPECT_THAT(printed.About(), HasSubstr("595.276 x 841.89 pts"));
}

TEST(ExportPdf, LinesReadBackWithTheRupeeSignAndIndianScripts) {
  const Printed printed(Statement().Rowset());
  const std::string page = printed.Page(1);
  EXPECT_THAT(page, ContainsRegex("Brake shoe +12.00 Nos +₹1,23,456.50\n"));
  EXPECT_THAT(page, ContainsRegex("पेट्रोल क्षेत्र +-3.50 Ltr +-₹34.50\n"));
  EXPECT_THAT(page, ContainsRegex("Total +₹1,23,422.00\n"));
  EXPECT_THAT(printed.Fonts(), Not(ContainsRegex(" no +(yes|no) +(yes|no) ")));  // not embedded
}

TEST(ExportPdf, FiguresStandToTheRight) {
  const std::string page = Printed(Statement().Rowset()).Page(1);
  EXPECT_EQ(LineWith(page, "Brake").size(), LineWith(page, "Total").size());
}

TEST(ExportPdf, GroupsAndTotalsAreBoldAndLinesAreNot) {
  const std::string marked = Printed(Statement().Rowset()).Marked();
  EXPECT_THAT(marked, HasSubstr("<b>Spare parts</b>"));
  EXPECT_THAT(marked, HasSubstr("<b>Total</b>"));
  EXPECT_THAT(marked, HasSubstr(">Brake shoe"));
  EXPECT_THAT(marked, Not(HasSubstr("<b>Brake shoe")));
}

// Below the heads, above the total, and two below it.
TEST(ExportPdf, RulesAreDrawn) { EXPECT_EQ(Printed(Statement().Rowset()).DrawnLines(), 4); }

TEST(ExportPdf, EveryPageHasItsHeadsAndNoLineIsLost) {
  constexpr int kLines = 150;
  Report report({"Item", "Value"});
  for (int i = 0; i < kLines; ++i) report.Add({fmt::format("Item {:03}", i), "₹1.00"});
  const Printed printed(report.Rowset());
  ASSERT_THAT(printed.About(), ContainsRegex("Pages: +3\n"));
  int next = 0;
  for (const int page : {1, 2, 3}) {
    const std::string text = printed.Page(page);
    EXPECT_THAT(text, HasSubstr("Asha Motors"));
    EXPECT_THAT(text, HasSubstr("2004-05 · printed 01/04/2005"));
    EXPECT_THAT(text, ContainsRegex("Item +Value\n"));
    EXPECT_THAT(text, HasSubstr(fmt::format("Page {} of 3", page)));
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      const std::size_t at = line.find("Item ");
      if (at == std::string::npos || line.find("Value") != std::string::npos) continue;
      EXPECT_EQ(line.substr(at, 8), fmt::format("Item {:03}", next++));
    }
  }
  EXPECT_EQ(next, kLines);
}

// Eighty lines in a group in a group, and on the page on which they end a line beside the outer one
// and a group of its own.
TEST(ExportPdf, APageThatBeginsWithinGroupsHasTheirHeadsOnceMore) {
  Report report({"Group", "Subgroup", "Item", "Value", "Remark"});
  report.Add({"Stores"});
  report.Add({"", "Spare parts", "", "₹80.00", "counted"});
  for (int i = 0; i < 80; ++i) report.Add({"", "", fmt::format("Part {:03}", i), "₹1.00"});
  report.Add({"Labour", "", "", "₹5.00"});
  report.Add({"Fuel", "", "", "₹3.00"});
  for (int i = 0; i < 3; ++i) report.Add({"", "", fmt::format("Oil {:03}", i), "₹1.00"});
  ReportLook look = Look();
  look.column = [](std::string_view column) {
    ColumnLook its;
    if (column == "Subgroup" || column == "Item") its.stands_in = "Group";
    if (column == "Subgroup") its.level = 1;
    if (column == "Item") its.level = 2;
    return its;
  };
  const Printed printed(report.Rowset(), look);
  ASSERT_THAT(printed.About(), ContainsRegex("Pages: +2\n"));
  EXPECT_THAT(printed.Page(1), Not(HasSubstr("continued")));
  const std::string page = printed.Page(2);
  EXPECT_THAT(page, ContainsRegex("Remark\n+ *Stores \\(continued\\)\n"
                                  " *Spare parts \\(continued\\)\n *Part 0"));
  EXPECT_THAT(page, ContainsRegex("Part 079 .*\n *Labour .*\n *Fuel .*\n *Oil 000"));
  EXPECT_THAT(printed.Marked(), HasSubstr("<b>Spare parts (continued)</b>"));
}

// The next group begins on the second page, and the third is within it.
TEST(ExportPdf, AHeadWithoutFiguresHasTheLinesBelowItThoughTheyAreNotMovedIn) {
  Report report({"Item", "Value"});
  for (const char* const group : {"Spare parts", "Fuel"}) {
    report.Add({group}, true);
    for (int i = 0; i < 70; ++i) report.Add({fmt::format("{} {:03}", group, i), "₹1.00"});
  }
  report.Add({}, true);
  report.Add({"Total", "₹140.00"}, true);
  const Printed printed(report.Rowset());
  ASSERT_THAT(printed.About(), ContainsRegex("Pages: +3\n"));
  EXPECT_THAT(printed.Page(2),
              ContainsRegex("Value\n+ *Spare parts \\(continued\\)\n *Spare parts 0"));
  EXPECT_THAT(printed.Page(3), ContainsRegex("Value\n+ *Fuel \\(continued\\)\n *Fuel 0"));
  EXPECT_THAT(printed.Page(3), ContainsRegex("Fuel 069 .*\n *Total "));
}

// As many lines as leave no room for the total, which may stand below a spacer.
TEST(ExportPdf, ATotalIsNeverAloneOnAPage) {
  for (int lines = 44; lines < 54; ++lines) {
    Report report({"Item", "Value"});
    for (int i = 0; i < lines; ++i) report.Add({fmt::format("Part {:03}", i), "₹1.00"});
    report.Add({});
    report.Add({}, true);
    report.Add({"Total", "₹1.00"}, true);
    const Printed printed(report.Rowset());
    const std::string last =
        printed.Page(printed.Page(1).find("of 2") == std::string::npos ? 1 : 2);
    EXPECT_THAT(last, ContainsRegex(fmt::format("Part {:03}.*\n+ *Total", lines - 1))) << lines;
  }
}

TEST(ExportPdf, WideStatementsGoOnSheetsSideBySideWithTheFirstColumnOnEach) {
  Cells columns = {"Item"};
  for (int i = 1; i <= 24; ++i) columns.push_back(fmt::format("Month{:02}", i));
  Report report(columns);
  Cells cells = {"Brake shoe"};
  for (int i = 1; i <= 24; ++i) cells.push_back(fmt::format("₹1,23,45,6{:02}.00", i));
  for (int i = 0; i < 60; ++i) report.Add(cells);
  const Printed printed(report.Rowset());
  const std::string about = printed.About();
  EXPECT_THAT(about, HasSubstr("841.89 x 595.276 pts"));
  const std::string sheets = printed.Page(1).substr(printed.Page(1).find("part 1 of ") + 10, 1);
  ASSERT_GE(std::stoi(sheets), 2);
  std::string heads;
  for (int sheet = 1; sheet <= std::stoi(sheets); ++sheet) {
    const std::string page = printed.Page(sheet);
    EXPECT_THAT(page, HasSubstr(fmt::format("Columns: part {} of {}", sheet, sheets)));
    EXPECT_THAT(page, HasSubstr("Brake shoe"));
    const std::string line = LineWith(page, "Month");
    EXPECT_THAT(line, ContainsRegex("^ *Item "));
    for (std::size_t at = 0; (at = line.find("Month", at)) != std::string::npos; ++at) {
      heads += line.substr(at + 5, 2);
    }
  }
  EXPECT_EQ(heads, "010203040506070809101112131415161718192021222324");
}

TEST(ExportPdf, LongTextsAreBrokenAndStayWhole) {
  Report report({"Party", "Narration", "Value"});
  std::string words;
  for (int i = 0; i < 60; ++i) words += fmt::format("word{:02} ", i);
  report.Add({"Asha", words, "₹1.00"});
  report.Add({"Vinod", "paid", "₹2.00"});
  const std::string page = Printed(report.Rowset()).Page(1);
  for (int i = 0; i < 60; ++i) EXPECT_THAT(page, HasSubstr(fmt::format("word{:02}", i)));
  EXPECT_GT(page.find("Vinod"), page.find("word59"));
}

TEST(ExportPdf, WhatHasToBeSaidStandsBelowTheLines) {
  RecordsetPtr report = Recordset::New();
  report->Fields().Append("Item", adBSTR);
  for (const char* const twin : {"QtyOpSort", "QtyInSort", "QtyOutSort", "QtyClSort"}) {
    report->Fields().Append(twin, adSingle, 0, adFldIsNullable);
  }
  report->Fields().Append("DummySort", adBigInt, 0, adFldIsNullable);
  report->Open();
  report->AddNew();
  report->Collect("Item", "Bolt");
  report->Collect("QtyOpSort", 5.0F);
  report->Collect("QtyClSort", 10.0F);
  report->Update();
  const std::string page = Printed(*report).Page(1);
  EXPECT_GT(page.find("In 1 line the closing quantity is not opening"), page.find("Bolt"));
}

TEST(ExportPdf, AReportWithoutLinesSaysSo) {
  const std::string page = Printed(Report({"Item"}).Rowset()).Page(1);
  EXPECT_THAT(page, HasSubstr("Stock by item"));
  EXPECT_THAT(page, HasSubstr("(no lines)"));
}

TEST(ExportPdf, AReportOfNothingButATotalSaysSo) {
  Report report({"Item", "Value"});
  report.Add({}, true);
  report.Add({"Total", "₹0.00"}, true);
  const std::string page = Printed(report.Rowset()).Page(1);
  EXPECT_THAT(page, ContainsRegex("Total +₹0.00\n+ *\\(no lines\\)"));
}

TEST(ExportPdf, WithoutALetterheadTheLooksOwnLinesStandOnTop) {
  const std::string page = Printed(Statement().Rowset(), Look(), {}).Page(1);
  EXPECT_THAT(page, ContainsRegex("Stock by item\n+ *Asha Motors\n+ *2004-05"));
  EXPECT_THAT(page, Not(HasSubstr("PAN")));
}

TEST(ExportPdf, TheSameReportOnTheSameDayIsTheSameFile) {
  std::ostringstream one, other;
  ExportPdf(Statement().Rowset(), Look(), kIndia, Style(), one);
  ExportPdf(Statement().Rowset(), Look(), kIndia, Style(), other);
  EXPECT_EQ(one.str(), other.str());
}

TEST(ExportPdf, NeedsALocaleAndPaperThatIsKnown) {
  std::ostringstream out;
  const Report report = Statement();
  const auto number = [&](const std::shared_ptr<const Locale>& locale, const PrintStyle& style) {
    try {
      ExportPdf(report.Rowset(), Look(), locale, style, out);
    } catch (const Error& error) {
      return error.Number();
    }
    return ErrorNumber{};
  };
  EXPECT_EQ(number(nullptr, {}), ErrorNumber::kObjectNotSet);
  EXPECT_EQ(number(kIndia, {.paper = "napkin"}), ErrorNumber::kArgumentOutOfRange);
  EXPECT_EQ(out.str(), "");
}

}  // namespace
}  // namespace pstolvane1::print
