// How cases are read and written.
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <unistd.h>

#include "CaseFile.h"

namespace pstolvane1::golden {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::FieldsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::ThrowsMessage;

TEST(CellText, CellsSurviveReadingAndWriting) {
  for (const std::string text :
       {"plain", "", " blank ", "a|b", "say \"yes\"", "____", "1\u00A0€"}) {
    EXPECT_EQ(TextOf(CellOf(text)), text);
  }
  EXPECT_EQ(CellOf(std::string(90, '_')), "_ x 90");
  EXPECT_EQ(CellOf(""), "\"\"");
}

TEST(CellText, ABarInQuotesPartsNoCells) {
  EXPECT_THAT(SplitCells(R"(a | "b|c" | | "")"), ElementsAre("a", "\"b|c\"", "", "\"\""));
}

TEST(CellText, ColumnsAreAlignedByCharacters) {
  EXPECT_EQ(Aligned({{"Ledger", "Amount"}, {"Anand", "₹ 1"}, {"B", "22"}}),
            "Ledger | Amount\nAnand  | ₹ 1\nB      | 22\n");
}

TEST(CellText, NullsAtTheEndOfALineAreLeftOut) {
  EXPECT_EQ(Aligned({{"A", "B", "C"}, {"1", "", ""}, {"", "", ""}, {"", "2", ""}}),
            "A | B | C\n1\n|\n  | 2\n");
}

TEST(CellText, ATurnedRowsetHasALineForEachColumn) {
  EXPECT_EQ(Aligned(Turned({{"Item 8", "Qty 4"}, {"Chain", "1"}, {"\"\"", ""}})),
            "Item 8 | Chain | \"\"\nQty 4  | 1\n");
}

// A folder of cases for one test.
class ACase : public testing::Test {
 protected:
  ACase() { std::filesystem::create_directories(folder_ / "LedgersByCode"); }
  ~ACase() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  void Write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ / name) << text;
  }
  [[nodiscard]] CaseFile Read(const std::string& text) const {
    Write("one.case", text);
    return ReadCase((folder_ / "one.case").string(), folder_.string());
  }
  [[nodiscard]] std::string Rewritten(const std::string& text, const std::string& expected) const {
    Write("one.case", text);
    RewriteCase((folder_ / "one.case").string(), expected);
    std::ifstream in(folder_ / "one.case");
    return {std::istreambuf_iterator<char>(in), {}};
  }

 private:
  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / ("a_case_" + std::to_string(getpid()));
};

TEST_F(ACase, TakesItsArgumentsFromANamedCall) {
  Write("LedgersByCode/calls",
        "# Both kinds.\narguments customers\nbytYearno = 3\nsCode = 30\n\n"
        "arguments banks as customers\nsCode = 2\n");
  const CaseFile file = Read("# x\ncall LedgersByCode as banks\nbytYearno = 4\n");
  ASSERT_EQ(file.calls.size(), 1U);
  EXPECT_EQ(file.calls[0].operation, "LedgersByCode");
  EXPECT_THAT(file.calls[0].arguments,
              ElementsAre(FieldsAre("bytYearno", "4", false), FieldsAre("sCode", "2", false)));
}

TEST_F(ACase, TakesItsArgumentsFromTheFamilyWhereTheReportHasNone) {
  Write("analysis.calls", "arguments plain\nbytYearno = 3\n");
  EXPECT_THAT(Read("# x\ncall LedgersByCode as plain\n").calls[0].arguments,
              ElementsAre(FieldsAre("bytYearno", "3", false)));
}

TEST_F(ACase, PassesARowsetAndSeveralLinesOfOneArgument) {
  const CaseFile file = Read(
      "# x\ncall LedgersByCode\nrowset recItem = SELECT Item_id FROM Items1\n"
      "  WHERE Item_id = 1\nsCode = \" a\"\n");
  EXPECT_THAT(
      file.calls[0].arguments,
      ElementsAre(FieldsAre("recItem", "SELECT Item_id FROM Items1 WHERE Item_id = 1", true),
                  FieldsAre("sCode", "\" a\"", false)));
}

TEST_F(ACase, MakesSeveralCalls) {
  EXPECT_THAT(Read("# x\ncall Doc_Initial\n\ncall LedgersByCode\n").calls,
              ElementsAre(Field(&TextCall::operation, "Doc_Initial"),
                          Field(&TextCall::operation, "LedgersByCode")));
}

TEST_F(ACase, IsAboutTheColumnsOfItsHeadUnlessThatHasTypes) {
  const std::string call = "# x\ncall LedgersByCode\n\nexpect anyCount 0\n";
  EXPECT_THAT(Read(call + "NAME | ID\nAnand | 1\n").expected.Columns(), ElementsAre("NAME", "ID"));
  EXPECT_THAT(Read(call + "NAME 200 | ID 3\nAnand | 1\n").expected.Columns(), IsEmpty());
  EXPECT_THAT(Read(call + "NAME 200 | Anand\nID 3 | 1\n").expected.Columns(), IsEmpty());
}

TEST_F(ACase, ReadsWhatItWrites) {
  const std::string call = "# x\ncall LedgersByCode\n\n";
  const std::string table = "expect anyCount 0\nNAME  | ID\nAnand\n|\n      | 2\n";
  const CaseFile file =
      Read(Rewritten(call + "expect\nNAME | ID\n", table + "\nexpect events\n20 Manipulating\n"));
  EXPECT_EQ(file.expected.Text(), table);
  EXPECT_THAT(file.expected.events, ElementsAre("20 Manipulating"));
}

TEST_F(ACase, IsNotReadWithWhatItCannotMean) {
  const auto refuses = [](const std::string& reason) {
    return ThrowsMessage<std::runtime_error>(HasSubstr(reason));
  };
  EXPECT_THAT([this] { (void)Read("call LedgersByCode\n"); }, refuses("does not say"));
  EXPECT_THAT([this] { (void)Read("# x\n"); }, refuses("one.case:1: the case has no call"));
  EXPECT_THAT([this] { (void)Read("# x\ncall LedgersByCode as nobody\n"); },
              refuses("one.case:2: LedgersByCode has no call nobody"));
  EXPECT_THAT([this] { (void)Read("# x\ncall LedgersByCode\na = 1\na = 2\n"); },
              refuses("one.case:4: the argument a comes twice"));
  EXPECT_THAT([this] { (void)Read("# x\ncall LedgersByCode\n\nexpect\n\nexpect\n"); },
              refuses("one.case:6: a second expectation"));
  EXPECT_THAT([this] { (void)Read("# x\ntable T\nA | B\n1\n"); },
              refuses("one.case:4: the row has not as many cells"));
}

}  // namespace
}  // namespace pstolvane1::golden
