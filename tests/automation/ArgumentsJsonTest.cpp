// Arguments and results of a call as JSON.
#include <gtest/gtest.h>
#include <string>

#include "automation/ArgumentsJson.h"
#include "automation/Operations.h"
#include "session/data/Error.h"
#include "tests/data/ExpectError.h"

namespace pstolvane1::automation {
namespace {

const Operation& Ledgers() { return GetOperation("LedgersByCode"); }

RecordsetPtr NoRowsets(std::string_view) {
  ADD_FAILURE() << "no rowset is expected";
  return nullptr;
}

TEST(ArgumentsAsJson, KeepTheirKinds) {
  const auto values = ArgumentsFromJson(
      Ledgers(), R"({"bytYearno": 3, "sCode": "1,41", "blnReport": true, "x": null, "y": 1.5})",
      NoRowsets);
  ASSERT_EQ(values.size(), 5U);
  EXPECT_EQ(values[0].value, Variant(std::int64_t{3}));
  EXPECT_EQ(values[1].value, Variant("1,41"));
  EXPECT_EQ(values[2].value, Variant(True));
  EXPECT_EQ(values[3].value, Variant(Null));
  EXPECT_EQ(values[4].value, Variant(1.5));
  EXPECT_TRUE(ArgumentsFromJson(Ledgers(), "", NoRowsets).empty());
}

TEST(ArgumentsAsJson, OpenARowsetArgumentFromItsSelect) {
  std::string opened;
  const auto values = ArgumentsFromJson(GetOperation("BillWiseQuery"),
                                        R"({"recitem": "select item_id from items1"})",
                                        [&](std::string_view select) {
                                          opened = select;
                                          return RecordsetPtr{};
                                        });
  EXPECT_EQ(opened, "select item_id from items1");
  EXPECT_EQ(values.at(0).name, "recitem");
}

TEST(ArgumentsAsJson, RefuseWhatIsNotAnObjectOfPlainValues) {
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "the arguments are not a JSON object of plain values: it is array",
              [] { static_cast<void>(ArgumentsFromJson(Ledgers(), "[1]", NoRowsets)); });
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "the arguments are not a JSON object of plain values: \"sCode\" is array", [] {
                static_cast<void>(ArgumentsFromJson(Ledgers(), R"({"sCode": [1]})", NoRowsets));
              });
  EXPECT_THROW(static_cast<void>(ArgumentsFromJson(Ledgers(), "{", NoRowsets)), Error);
}

TEST(OutcomesAsJson, HoldTheValueAndWhatChanged) {
  const Outcome outcome{
      .value = True, .connection = {}, .changed = {{"sCode", " In (1) "}, {"reptype", 10}}};
  EXPECT_EQ(OutcomeAsJson(outcome),
            R"({"value":true,"changed":{"sCode":" In (1) ","reptype":10}})");
  EXPECT_EQ(OutcomeAsJson({}), R"({"value":null,"changed":{}})");
}

}  // namespace
}  // namespace pstolvane1::automation
