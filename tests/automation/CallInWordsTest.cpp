// Calls in words: all of them are read before anything is opened.
#include <gtest/gtest.h>
#include <string>

#include "automation/CallInWords.h"
#include "session/data/Error.h"
#include "tests/automation/SampleCompany.h"
#include "tests/data/ExpectError.h"

namespace pstolvane1::automation {
namespace {

CallWords Ledgers(const std::string& books = "/nowhere/none.db") {
  CallWords words;
  words.operation = "ledgersbycode";
  words.arguments = {"bytYearno=1", "SCODE="};
  words.books = books;
  return words;
}

std::string Told(const CallWords& words) {
  try {
    const CallInWords call(words);
  } catch (const WrongCall& error) {
    const std::string text = error.what();
    return text.substr(0, text.find('\n'));
  }
  return "right";
}

TEST(CallInWords, IsReadWholeBeforeTheBooksAreOpened) {
  EXPECT_EQ(Told(Ledgers()), "right");
  struct Wrong {
    void (*spoil)(CallWords&);
    std::string told;
  };
  const Wrong kWrong[] = {
      {[](CallWords& words) { words.operation = "Ledgers"; },
       "there is no operation \"Ledgers\"; did you mean \"LedgersByCode\"?; \"stolvane reports\" "
       "lists them"},
      {[](CallWords& words) { words.arguments.pop_back(); },
       "LedgersByCode: sCode is missing, a text"},
      {[](CallWords& words) { words.arguments.emplace_back("bytYearNo=2"); },
       "LedgersByCode: bytYearno is given twice"},
      {[](CallWords& words) { words.rowsets = {"recitem=select 1 as one"}; },
       "LedgersByCode: there is no argument \"recitem\""},
      {[](CallWords& words) { words.rowsets = {"sCode=select 1 as one"}; },
       "LedgersByCode: sCode is given twice"},
      {[](CallWords& words) { words.aliases = {"taItems=1"}; },
       "SetAliases: there is no argument \"taItems\"; did you mean \"taItem\"?"},
      {[](CallWords& words) { words.filters = {"OptNo=300"}; },
       "SetFilter: OptNo takes a whole number from 0 to 255, and 300 lies outside"},
      {[](CallWords& words) { words.books_to = "31.3.2004"; },
       "SetConnection: dtToDate takes a date as 2004-03-31, not \"31.3.2004\""},
  };
  for (const Wrong& wrong : kWrong) {
    CallWords words = Ledgers();
    wrong.spoil(words);
    EXPECT_EQ(Told(words), wrong.told);
  }
}

TEST(CallInWords, RunsOnANewSession) {
  const SampleCompany company;
  CallWords words = Ledgers(company.File());
  words.aliases = {"taLedger=LedgerNames1.Pin"};
  const CallInWords call(words);
  EXPECT_EQ(call.Called().name, "LedgersByCode");
  EXPECT_EQ(call.ReportType(), 9);
  clsStolvane1 session;
  const RecordsetPtr ledgers = call.Run(session).value.ToRowset();
  ASSERT_EQ(ledgers->RecordCount(), 2);
  EXPECT_EQ(ledgers->Collect("NAME"), Variant("411001"));
}

TEST(CallInWords, BlnReportFollowsThePathUnlessItIsAnArgument) {
  const SampleCompany company;
  for (const bool argument : {false, true}) {
    CallWords words = Ledgers(company.File());
    words.asynchronous = true;
    if (argument) words.arguments.emplace_back("BLNREPORT=true");
    clsStolvane1 session;
    EXPECT_EQ(CallInWords(words).Run(session).value.IsEmpty(), !argument);
  }
}

TEST(CallInWords, ARowsetArgumentIsOneSelectOnItsBooks) {
  const SampleCompany company;
  CallWords words;
  words.operation = "CustomerItemwise_Analysis";
  words.arguments = {"reptype=0",  "bytYearno=1",  "lngId=-1", "dtFromDate=2003-04-01",
                     "dtToDate=0", "blnDetailed=0"};
  words.books = company.File();
  words.rowsets = {"rsItems=select Item_id from Nowhere"};
  const CallInWords call(words);
  clsStolvane1 session;
  ExpectError(ErrorNumber::kQueryRefused, "line 1, column 21: unknown table \"Nowhere\"",
              [&] { call.Run(session); });
}

}  // namespace
}  // namespace pstolvane1::automation
