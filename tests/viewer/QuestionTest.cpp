// What a page may ask.
#include <gtest/gtest.h>

#include "viewer/Question.h"

namespace pstolvane1::viewer {
namespace {

using automation::WrongCall;

automation::CallWords Read(const std::string& json) {
  return QuestionFromJson(json, "mine.db", "en_IN");
}

std::string Refused(const std::string& json) {
  try {
    static_cast<void>(Read(json));
  } catch (const WrongCall& wrong) {
    return wrong.what();
  }
  return "read";
}

TEST(Question, IsACallOnTheBooksThatAreServed) {
  const automation::CallWords words =
      Read(R"({"operation": "Doc_Initial", "arguments": {"lngVouchertype_id": "10"}})");
  EXPECT_EQ(words.operation, "Doc_Initial");
  EXPECT_EQ(words.arguments, std::vector<std::string>{"lngVouchertype_id=10"});
  EXPECT_EQ(words.books, "mine.db");
  EXPECT_TRUE(words.rowsets.empty());
  EXPECT_TRUE(words.asynchronous);
}

TEST(Question, HasItsRowsetsFilledFromTheBooks) {
  const automation::CallWords words = Read(R"({"operation": "ServiceTax"})");
  ASSERT_EQ(words.rowsets.size(), 2U);
  EXPECT_TRUE(words.rowsets[0].starts_with("recitem=select Item_id"));
  EXPECT_TRUE(words.rowsets[1].starts_with("recLedger=select Ledger_id"));
}

TEST(Question, WaitsForAReportThatComesAtOnceOnly) {
  EXPECT_FALSE(Read(R"({"operation": "BillWiseQuery1"})").asynchronous);
  EXPECT_TRUE(Read(R"({"operation": "BillWiseQuery"})").asynchronous);
}

TEST(Question, IsRefusedWhereItIsNone) {
  EXPECT_EQ(Refused("nothing"), "a question names its operation");
  EXPECT_EQ(Refused("[]"), "a question names its operation");
  EXPECT_EQ(Refused(R"({"operation": 1})"), "a question names its operation");
  EXPECT_EQ(Refused(R"({"operation": "SetConnection"})"), "SetConnection is no report");
  EXPECT_EQ(Refused(R"({"operation": "mColorwise_Initial"})"), "mColorwise_Initial is no report");
  EXPECT_TRUE(Refused(R"({"operation": "Stock"})").starts_with("there is no operation \"Stock\""));
  EXPECT_EQ(Refused(R"({"operation": "Doc_Initial", "arguments": []})"),
            "the arguments are no object");
  EXPECT_EQ(Refused(R"({"operation": "Doc_Initial", "arguments": {"gScale": 1}})"),
            "gScale is no text");
}

}  // namespace
}  // namespace pstolvane1::viewer
