// Operations called by name on real books.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "automation/Calls.h"
#include "automation/Operations.h"
#include "session/data/Error.h"
#include "tests/automation/SampleCompany.h"
#include "tests/data/ExpectError.h"

namespace pstolvane1::automation {
namespace {

TEST(Attached, MembersHaveTheArgumentsOfTheCatalogue) {
  for (const Operation& operation : Operations()) {
    SCOPED_TRACE(operation.name);
    std::vector<ArgumentType> described;
    for (const Argument& argument : operation.arguments) described.push_back(argument.type);
    const auto types = operation.member.types;
    EXPECT_EQ(std::vector<ArgumentType>(types.begin(), types.end()), described);
  }
}

class Calls : public testing::Test {
 protected:
  Outcome Run(std::string_view operation, const std::vector<NamedValue>& values = {}) {
    return Call(session_, GetOperation(operation), values);
  }
  void Connect() {
    const Outcome outcome = Run("SetConnection", {{"strProvider", ""},
                                                  {"strConnectionString", ""},
                                                  {"strConnectionString1", company_.File()},
                                                  {"AsyncConnect", false}});
    ASSERT_EQ(outcome.value, Variant(True));
  }

  SampleCompany company_;
  clsStolvane1 session_;
};

TEST_F(Calls, ReturnTheReportsRowset) {
  Connect();
  const Outcome outcome = Run("Doc_Initial", {{"bytYearno", 1},
                                              {"lngVouchertype_id", 10},
                                              {"dtFromDate", "2003-04-01"},
                                              {"dtToDate", "2004-03-31"},
                                              {"gScale", "0.5"}});
  const RecordsetPtr report = outcome.value.ToRowset();
  ASSERT_EQ(report->RecordCount(), 4);
  EXPECT_EQ(report->Collect("Ledger"), Variant("Asha Motors"));
  EXPECT_EQ(report->Collect("Ledger_Id"), Variant(1));
  EXPECT_EQ(report->Collect("AmountSort"), Variant("500"));
  report->MoveLast();
  EXPECT_EQ(report->Collect("Ledger"), Variant("Total"));
}

TEST_F(Calls, TellWhatAnOperationMadeOfAnArgumentByReference) {
  Connect();
  const Outcome outcome =
      Run("LedgersByCode", {{"bytYearno", 1}, {"sCode", "1,41"}, {"blnReport", true}});
  ASSERT_EQ(outcome.changed.size(), 1U);
  EXPECT_EQ(outcome.changed[0].name, "sCode");
  EXPECT_EQ(outcome.changed[0].value, Variant(" SUBGROUPNAME1.CODE IN (1,41) AND "));
  EXPECT_EQ(outcome.value.ToRowset()->RecordCount(), 2);
}

TEST_F(Calls, HandARequestInTheBackgroundOverByItsEvent) {
  Connect();
  RecordsetPtr delivered;
  session_.FetchComplete = [&](const RecordsetPtr& rowset, std::int32_t) { delivered = rowset; };
  const Outcome outcome =
      Run("LedgersByCode", {{"bytYearno", 1}, {"sCode", ""}, {"blnReport", false}});
  EXPECT_TRUE(outcome.value.IsEmpty());
  for (int i = 0; i < 500 && !delivered; ++i) WaitForEvents(std::chrono::milliseconds(20));
  ASSERT_TRUE(delivered);
  EXPECT_EQ(delivered->RecordCount(), 2);
}

TEST_F(Calls, SetAliasesAndFiltersByName) {
  Connect();
  Run("SetAliases", {{"taLedger", "LedgerNames1.Pin"}});
  const Outcome named =
      Run("LedgersByCode", {{"bytYearno", 1}, {"sCode", ""}, {"blnReport", true}});
  EXPECT_EQ(named.value.ToRowset()->Collect("NAME"), Variant("411001"));
  EXPECT_TRUE(Run("SetFilter", {{"strVouchertypeFilter", ""},
                                {"strSubgroupFilter", ""},
                                {"btTypeOfentry", 0},
                                {"OptNo", 1}})
                  .value.IsEmpty());
  EXPECT_TRUE(Run("UserPressedCancel").value.IsEmpty());
  EXPECT_TRUE(Run("SetLocale", {{"name", "en_IN"}}).value.IsEmpty());
}

TEST_F(Calls, StopAReportEarlyWithItsClosingLines) {
  Connect();
  Run("CancelFetching", {{"CancelFetching", true}});
  const Outcome outcome = Run("Doc_Initial", {{"bytYearno", 1},
                                              {"lngVouchertype_id", 10},
                                              {"dtFromDate", "2003-04-01"},
                                              {"dtToDate", "2004-03-31"}});
  EXPECT_EQ(outcome.value.ToRowset()->RecordCount(), 3);  // one ledger, the rule, the total
}

TEST_F(Calls, GiveTheConnection) {
  EXPECT_EQ(Run("GetConnectionObject").connection, nullptr);
  Connect();
  EXPECT_EQ(Run("GetConnectionObject").connection, session_.GetConnectionObject());
}

TEST_F(Calls, PassTheOperationsOwnErrorOn) {
  EXPECT_THROW(Run("POrderTextQuery", {{"strFilter", ""}}), Error);
  Connect();
  try {
    Run("POrderTextQuery", {{"strFilter", "drop table desr1"}});
    FAIL() << "the condition was accepted";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kQueryRefused);
  }
}

TEST_F(Calls, OpenARowsetArgumentFromASelect) {
  ExpectError(ErrorNumber::kNoConnection, "the session is not connected to any books",
              [&] { static_cast<void>(OpenSelect(session_, "select 1 as one")); });
  Connect();
  const RecordsetPtr items =
      OpenSelect(session_, "select item_id as itemnew_id, itemname from items1");
  EXPECT_EQ(items->RecordCount(), 1);
  EXPECT_EQ(items->Collect("itemnew_id"), Variant(5));
  EXPECT_EQ(items->ActiveConnection(), nullptr);
}

}  // namespace
}  // namespace pstolvane1::automation
