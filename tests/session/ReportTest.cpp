// Reports through a session, on both paths: what the host sees, in which order.
#include <thread>

#include "SessionHarness.h"

namespace pstolvane1 {
namespace {

const std::string kRule(90, '_');

std::vector<std::vector<Variant>> Ledgers(std::int32_t count) {
  std::vector<std::vector<Variant>> rows;
  for (std::int32_t i = 1; i <= count; ++i) {
    rows.push_back({Currency::FromTenThousandths(10000 * i), i, "Ledger " + std::to_string(i)});
  }
  return rows;
}

class ReportTest : public SessionTest {
 protected:
  ReportTest() { books->Answer("as amount", LedgerAmounts(Ledgers(4))); }
  modStolvane1& module = *modStolvane1::OfThisThread();
};

TEST_F(ReportTest, SynchronousItReturnsTheReportAndRaisesProgressUpTo20ButNoCompletion) {
  Connect();
  const RecordsetPtr report = Documents(True);
  EXPECT_EQ(FirstColumn(*report), (std::vector<std::string>{"Ledger 1", "Ledger 2", "Ledger 3",
                                                            "Ledger 4", "(null)", "Total"}));
  EXPECT_EQ(events, (EventLog{"15 manipulating", "20 manipulating"}));
}

TEST_F(ReportTest, AsynchronousTheEventsComeInTheirOrder) {
  Connect();
  const RecordsetPtr report = FetchDocuments();
  EXPECT_EQ(report->RecordCount(), 6);
  ASSERT_GE(events.size(), 2U);
  // The rowset says how often it reports while it fetches; the first time brings at least a step.
  std::size_t at = 0;
  while (at < events.size() && events[at].ends_with(" FetchingData")) ++at;
  ASSERT_GE(at, 1U);
  const int fetched = std::stoi(events[at - 1]);
  EXPECT_LE(fetched, 20);
  EventLog rest(events.begin() + static_cast<std::ptrdiff_t>(at), events.end());
  int percent = std::min(20, fetched + 1);
  EventLog expected = {std::to_string(percent) + " Manipulating"};
  for (int row = 0; row < 4; ++row) {
    percent = std::min(60, percent + 15);
    const std::string told = std::to_string(percent) + " manipulating";
    if (expected.back() != told) expected.push_back(told);
  }
  expected.emplace_back("FetchComplete 0");
  EXPECT_EQ(rest, expected);
}

TEST_F(ReportTest, BlnReportOf1IsNotTrue) {
  Connect();
  EXPECT_EQ(Documents(1), nullptr);
  PumpUntil([&] { return !events.empty() && events.back() == "FetchComplete 0"; });
}

TEST_F(ReportTest, AFetchThatHasNoRowsYetTellsThePercentageAgain) {
  books->Answer("as amount", [] {
    FakeTable ledgers = LedgerAmounts({});
    ledgers.held = true;
    return ledgers;
  }());
  Connect();
  int told = 0;
  const auto logging = session->FetchProgress;
  session->FetchProgress = [&](std::uint8_t percent, std::string_view message) {
    logging(percent, message);
    if (message == "FetchingData" && ++told == 2) books->Release();
  };
  (void)FetchDocuments();
  EXPECT_GE(told, 2);
  EXPECT_EQ(events.front(), "0 FetchingData");
  EXPECT_EQ(events[1], "1 Manipulating");
}

TEST_F(ReportTest, ASecondReportBeginsAt20) {
  Connect();
  (void)FetchDocuments();
  events.clear();
  (void)FetchDocuments();
  EXPECT_EQ(events.front(), "20 FetchingData");
  EXPECT_EQ(events[1], "20 Manipulating");
}

// The session that asks last overwrites what another on its thread still fetches for.
TEST_F(ReportTest, SessionsOnOneThreadShareTheArguments) {
  Connect();
  clsStolvane1 other(books->Maker());
  other.SetLocale("en_IN");
  other.SetConnection("", "", "books", False);
  RecordsetPtr delivered;
  session->FetchComplete = [&](const RecordsetPtr& rowset, std::int32_t) { delivered = rowset; };
  EXPECT_EQ(Documents(False), nullptr);
  const Date later = Date::FromYmd(2005, 4, 1);
  EXPECT_EQ(other.Doc_Initial(4, 10, later, later, True)->RecordCount(), 6);
  EXPECT_EQ(module.dtFromDate, later);
  PumpUntil([&] { return delivered != nullptr; });
  EXPECT_EQ(delivered->RecordCount(), 6);
  other.SetFilter("vouchertype1.vouchertype_id = 7", "", 0, 0);
  EXPECT_EQ(module.filter.strVouchertypeFilter, "vouchertype1.vouchertype_id = 7");
}

TEST_F(ReportTest, BothPathsGiveTheSameRowset) {
  Connect();
  const RecordsetPtr at_once = Documents(True);
  const RecordsetPtr fetched = FetchDocuments();
  ASSERT_EQ(at_once->Fields().Count(), fetched->Fields().Count());
  for (int column = 0; column < at_once->Fields().Count(); ++column) {
    EXPECT_EQ(at_once->Fields()(column).Name(), fetched->Fields()(column).Name());
  }
  at_once->MoveFirst();
  fetched->MoveFirst();
  for (; !at_once->Eof(); at_once->MoveNext(), fetched->MoveNext()) {
    for (int column = 0; column < at_once->Fields().Count(); ++column) {
      EXPECT_EQ(at_once->Fields()(column).Value(), fetched->Fields()(column).Value());
    }
  }
  EXPECT_TRUE(fetched->Eof());
}

TEST_F(ReportTest, WithoutRowsOnlyTheClosingLinesAreDelivered) {
  books->Answer("as amount", LedgerAmounts({}));
  Connect();
  EXPECT_EQ(FirstColumn(*FetchDocuments()), (std::vector<std::string>{"(null)", "Total"}));
  EXPECT_EQ(events.back(), "FetchComplete 0");
}

TEST_F(ReportTest, CancelledBeforeTheStartExactlyOneRowIsDone) {
  Connect();
  session->CancelFetching(True);
  EXPECT_EQ(FirstColumn(*Documents(True)),
            (std::vector<std::string>{"Ledger 1", "(null)", "Total"}));
  EXPECT_EQ(FirstColumn(*FetchDocuments()),
            (std::vector<std::string>{"Ledger 1", "(null)", "Total"}));
  EXPECT_EQ(events.back(), "FetchComplete 0");
}

TEST_F(ReportTest, ACancelledReportSaysSo) {
  Connect();
  EXPECT_TRUE(session->ReportIsWhole());
  (void)Documents(True);
  EXPECT_TRUE(session->ReportIsWhole());
  session->CancelFetching(True);
  (void)Documents(True);
  EXPECT_FALSE(session->ReportIsWhole());
  session->CancelFetching(False);
  std::optional<bool> whole;
  int rows = 0;
  session->FetchProgress = [&](std::uint8_t, std::string_view message) {
    if (message == "manipulating" && ++rows == 2) session->CancelFetching(True);
  };
  session->FetchComplete = [&](const RecordsetPtr&, std::int32_t) {
    whole = session->ReportIsWhole();
  };
  (void)Documents(False);
  EXPECT_TRUE(session->ReportIsWhole());  // the one before no longer counts
  PumpUntil([&] { return whole.has_value(); });
  EXPECT_EQ(whole, false);
}

TEST_F(ReportTest, ACancelStaysInForceUntilFalseIsWritten) {
  Connect();
  session->CancelFetching(True);
  EXPECT_EQ(Documents(True)->RecordCount(), 3);
  EXPECT_EQ(Documents(True)->RecordCount(), 3);
  session->CancelFetching(False);
  EXPECT_EQ(Documents(True)->RecordCount(), 6);
}

TEST_F(ReportTest, OnlyTrueCancels) {
  Connect();
  session->CancelFetching(1);
  EXPECT_EQ(Documents(True)->RecordCount(), 6);
  EXPECT_EQ(FetchDocuments()->RecordCount(), 6);
  session->CancelFetching(True);
  session->CancelFetching(2);
  EXPECT_EQ(Documents(True)->RecordCount(), 6);
}

TEST_F(ReportTest, CancelledFromAProgressHandlerTheRowsDoneSoFarAreDelivered) {
  Connect();
  int rows = 0;
  session->FetchProgress = [&](std::uint8_t, std::string_view message) {
    if (message == "manipulating" && ++rows == 2) session->CancelFetching(True);
  };
  EXPECT_EQ(FirstColumn(*FetchDocuments()),
            (std::vector<std::string>{"Ledger 1", "Ledger 2", "(null)", "Total"}));
}

TEST_F(ReportTest, CancelledWhileItFetchesTheFetchRunsToItsEndAndOneRowIsDone) {
  FakeTable table = LedgerAmounts(Ledgers(4));
  table.held = true;
  books->Answer("as amount", std::move(table));
  Connect();
  EXPECT_EQ(Documents(False), nullptr);
  session->CancelFetching(True);
  RecordsetPtr delivered;
  session->FetchComplete = [&](RecordsetPtr rowset, std::int32_t) { delivered = rowset; };
  (void)WaitForEvents(std::chrono::milliseconds(20));
  EXPECT_EQ(delivered, nullptr);
  books->Release();
  PumpUntil([&] { return delivered != nullptr; });
  EXPECT_EQ(FirstColumn(*delivered), (std::vector<std::string>{"Ledger 1", "(null)", "Total"}));
}

TEST_F(ReportTest, UserPressedCancelChangesNothing) {
  Connect();
  EXPECT_TRUE(session->UserPressedCancel().IsEmpty());
  EXPECT_EQ(Documents(True)->RecordCount(), 6);
}

TEST_F(ReportTest, SetFilterHasNoEffectOnTheList) {
  Connect();
  (void)Documents(True);
  EXPECT_TRUE(session->SetFilter("Vouchertype1.RelatedTo = 3", "X = 1", 1, 2).IsEmpty());
  (void)Documents(True);
  const std::vector<std::string> queries = books->Queries();
  ASSERT_EQ(queries.size(), 2U);
  EXPECT_EQ(queries[0], queries[1]);
  EXPECT_EQ(module.filter.strSubgroupFilter, "X = 1");
}

TEST_F(ReportTest, AliasesStayInForceAndAreCopied) {
  books->Answer("as ledgername", LedgerAmounts({}));
  Connect();
  typAliases aliases{.taLedger = "LedgerNames1.Pin"};
  session->SetAliases(aliases);
  aliases.taLedger = "changed";
  (void)Documents(True);
  (void)Documents(True);
  for (const std::string& query : books->Queries()) {
    EXPECT_NE(query.find("ledgernames1.pin as ledgername"), std::string::npos);
    EXPECT_EQ(query.find("ledgernames1.ledgername"), std::string::npos);
  }
}

TEST_F(ReportTest, TheArgumentsAreKeptInTheModule) {
  Connect();
  (void)session->Doc_Initial(3, 10, Date::FromYmd(2003, 4, 1), Date::FromYmd(2004, 3, 31), True,
                             1000);
  EXPECT_EQ(module.bytYearno, 3);
  EXPECT_EQ(module.sngScale, 1000.0F);
  EXPECT_EQ(module.strFromDateText, "04/01/2003");
  EXPECT_EQ(module.strToDateText, "03/31/2004");
  EXPECT_NE(module.strSQL.find("sum(desr1.totalamount)/1000  as amount"), std::string::npos);
}

TEST_F(ReportTest, TwoSessionsOnOneThreadShareTheArguments) {
  Connect();
  clsStolvane1 other(books->Maker());
  other.SetConnection("", "", "books", False);
  (void)Documents(True);
  const std::string first = module.strSQL;
  (void)other.Doc_Initial(5, 8, Date::FromYmd(2005, 4, 1), Date::FromYmd(2006, 3, 31));
  EXPECT_EQ(module.bytYearno, 5);
  EXPECT_NE(module.strSQL, first);
}

TEST_F(ReportTest, TwoSessionsOnOneThreadShareTheFilterButNotTheAliases) {
  Connect();
  clsStolvane1 other(books->Maker());
  other.SetConnection("", "", "books", False);
  session->SetFilter("Vouchertype1.RelatedTo = 3", "SubgroupName1.Code = 4", 2, 1);
  session->SetAliases({.taLedger = "LedgerNames1.Pin"});
  (void)other.Doc_Initial(5, 8, Date::FromYmd(2005, 4, 1), Date::FromYmd(2006, 3, 31));
  EXPECT_NE(module.strSQL.find("ledgernames1.ledgername as ledgername"), std::string::npos);
  (void)Documents(True);
  EXPECT_NE(module.strSQL.find("ledgernames1.pin as ledgername"), std::string::npos);
  other.SetFilter("", "", 0, 0);
  EXPECT_EQ(module.filter.strVouchertypeFilter, "");
  EXPECT_EQ(module.filter.strSubgroupFilter, "");
  EXPECT_EQ(module.filter.btTypeOfentry, 0);
  EXPECT_EQ(module.filter.OptNo, 0);
}

TEST_F(ReportTest, TheFilterStaysInForceUntilItIsSetAgain) {
  Connect();
  session->SetFilter("Vouchertype1.RelatedTo = 3", "SubgroupName1.Code = 4", 2, 1);
  (void)Documents(True);
  (void)FetchDocuments();
  session->SetConnection("", "", "books", False);
  EXPECT_EQ(module.filter.strVouchertypeFilter, "Vouchertype1.RelatedTo = 3");
  EXPECT_EQ(module.filter.strSubgroupFilter, "SubgroupName1.Code = 4");
  EXPECT_EQ(module.filter.btTypeOfentry, 2);
  EXPECT_EQ(module.filter.OptNo, 1);
}

TEST_F(ReportTest, WhileItConnectsTheConnectionIsNotOpenYet) {
  books->OpenHolds();
  session->SetConnection("", "", "books", True);
  for (const Boolean mode : {True, False}) {
    try {
      (void)Documents(mode);
      FAIL() << "no error";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kNoConnection);
    }
  }
  books->Release();
  PumpUntil([&] { return session->GetConnectionObject()->State() == adStateOpen; });
  EXPECT_EQ(Documents(True)->RecordCount(), 6);
}

TEST_F(ReportTest, BeforeSetConnectionItIsTheConnectionThatIsMissing) {
  for (const Boolean mode : {True, False}) {
    try {
      (void)Documents(mode);
      FAIL() << "no error";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kNoConnection);
    }
  }
  EXPECT_THROW((void)session->POrderTextQuery(""), Error);
  EXPECT_EQ(events, EventLog{});
  Connect();
  EXPECT_EQ(Documents(True)->RecordCount(), 6) << "the session is not usable after the error";
}

TEST_F(ReportTest, ARefusedQueryGoesToTheCallerOnBothPathsAndCountsNoFetch) {
  FakeTable refused;
  refused.refusal = Error(ErrorNumber::kQueryRefused, "line 1, column 8: no such column");
  books->Answer("as amount", refused);
  Connect();
  for (const Boolean mode : {True, False}) {
    try {
      (void)Documents(mode);
      FAIL() << "no error";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kQueryRefused);
      EXPECT_NE(error.Description().find("no such column"), std::string::npos);
    }
  }
  EXPECT_EQ(module.bytFetchesDone, 0);
}

TEST_F(ReportTest, AFetchThatFailsStillDispatchesAndItsErrorLeavesThroughThePump) {
  FakeTable table = LedgerAmounts(Ledgers(2));
  table.failure = Error(ErrorNumber::kQueryRefused, "division by zero");
  books->Answer("as amount", std::move(table));
  Connect();
  EXPECT_EQ(Documents(False), nullptr);
  std::string told;
  for (int round = 0; round < 500 && told.empty(); ++round) {
    try {
      (void)WaitForEvents(std::chrono::milliseconds(20));
    } catch (const Error& error) {
      told = error.Description();
    }
  }
  EXPECT_NE(told.find("division by zero"), std::string::npos);
  EXPECT_EQ(module.bytFetchesDone, 0) << "the failed fetch was not counted and dispatched";
  ASSERT_FALSE(events.empty());
  EXPECT_TRUE(events.back().ends_with(" Manipulating")) << events.back();
  // Nothing is delivered, and the session goes on.
  books->Answer("as amount", LedgerAmounts(Ledgers(4)));
  EXPECT_EQ(FetchDocuments()->RecordCount(), 6);
}

TEST_F(ReportTest, TheDeliveredRowsetIsTheHosts) {
  Connect();
  const RecordsetPtr report = FetchDocuments();
  (void)FetchDocuments();
  session.reset();
  EXPECT_EQ(report->RecordCount(), 6);
  report->MoveLast();
  EXPECT_EQ(report->Collect("Ledger"), Variant("Total"));
}

TEST_F(ReportTest, AReportInsideFetchCompleteIsDelivered) {
  Connect();
  std::vector<std::int32_t> delivered;
  session->FetchComplete = [&](const RecordsetPtr& rowset, std::int32_t) {
    delivered.push_back(rowset->RecordCount());
    if (delivered.size() == 1) {
      EXPECT_EQ(Documents(True)->RecordCount(), 6);
      EXPECT_EQ(Documents(False), nullptr);
    }
  };
  EXPECT_EQ(Documents(False), nullptr);
  PumpUntil([&] { return delivered.size() == 2; });
  EXPECT_EQ(delivered, (std::vector<std::int32_t>{6, 6}));
}

TEST_F(ReportTest, AReportInsideAProgressEventOfARowLeavesTheOuterOneWhole) {
  Connect();
  std::string codes;
  books->Answer("as name", {.columns = {{.name = "id", .type = adInteger},
                                        {.name = "name", .type = adVarChar, .defined_size = 50}},
                            .rows = {{1, "Only"}}});
  int rows = 0;
  RecordsetPtr inner;
  session->FetchProgress = [&](std::uint8_t, std::string_view message) {
    if (message == "manipulating" && ++rows == 2) inner = session->LedgersByCode(3, codes, True);
  };
  EXPECT_EQ(FirstColumn(*Documents(True)),
            (std::vector<std::string>{"Ledger 1", "Ledger 2", "Ledger 3", "Ledger 4", "(null)",
                                      "Total"}));
  ASSERT_NE(inner, nullptr);
  EXPECT_EQ(FirstColumn(*inner), std::vector<std::string>{"1"});
}

TEST_F(ReportTest, AReportAskedForWhileAnotherFetchesReplacesIt) {
  FakeTable held = LedgerAmounts(Ledgers(4));
  held.held = true;
  books->Answer("as amount", std::move(held));
  books->Answer("as name", {.columns = {{.name = "id", .type = adInteger},
                                        {.name = "name", .type = adVarChar, .defined_size = 50}},
                            .rows = {{1, "Only"}}});
  Connect();
  EXPECT_EQ(Documents(False), nullptr);
  std::string codes;
  EXPECT_EQ(session->LedgersByCode(3, codes, False), nullptr);
  books->Release();
  PumpUntil([&] { return !events.empty() && events.back() == "FetchComplete 0"; });
  (void)WaitForEvents(std::chrono::milliseconds(30));
  EXPECT_EQ(std::count(events.begin(), events.end(), "FetchComplete 0"), 1);
  EXPECT_EQ(module.bytFetchesDone, 0);
}

TEST_F(ReportTest, AReportInsideAnEventOfTheFetchTakesItsPlace) {
  Connect();
  int inside = 0;
  std::vector<std::int32_t> delivered;
  session->FetchProgress = [&](std::uint8_t, std::string_view message) {
    if (message == "FetchingData" && ++inside == 1) {
      EXPECT_EQ(Documents(True)->RecordCount(), 6);
    }
  };
  session->FetchComplete = [&](const RecordsetPtr& rowset, std::int32_t) {
    delivered.push_back(rowset->RecordCount());
  };
  EXPECT_EQ(Documents(False), nullptr);
  PumpUntil([&] { return inside > 0 && !session->Fetching(); });
  (void)WaitForEvents(std::chrono::milliseconds(10));
  EXPECT_EQ(delivered, std::vector<std::int32_t>()) << "the rowset that fetched was replaced";
  EXPECT_EQ(module.bytFetchesDone, 0);
  session->FetchProgress = nullptr;
  EXPECT_EQ(Documents(False), nullptr);
  PumpUntil([&] { return !delivered.empty(); });
  EXPECT_EQ(delivered, std::vector<std::int32_t>{6});
}

TEST_F(ReportTest, AReportInsideManipulatingLeavesItsRowsetToTheOuterOne) {
  Connect();
  books->Answer("sum(creditamt)", LedgerAmounts(Ledgers(2)));
  bool inside = false;
  std::vector<std::vector<std::string>> delivered;
  session->FetchProgress = [&](std::uint8_t, std::string_view message) {
    if (message != "Manipulating" || inside) return;
    inside = true;
    const Date day = Date::FromYmd(2003, 4, 1);
    (void)session->Doc_Initial(3, 9, day, day, False);
  };
  session->FetchComplete = [&](RecordsetPtr rowset, std::int32_t) {
    delivered.push_back(FirstColumn(*rowset));
  };
  EXPECT_EQ(Documents(False), nullptr);
  PumpUntil([&] { return !delivered.empty() && !session->Fetching(); });
  // Nothing guards against it: both builders read the rowset that the inner call put in place.
  ASSERT_EQ(delivered.size(), 2U);
  for (const std::vector<std::string>& lines : delivered) EXPECT_EQ(lines.back(), "Total");
  EXPECT_EQ(module.bytFetchesDone, 0);
}

TEST_F(ReportTest, ProgressWithEveryRowOnBothPathsIsMonotonous) {
  books->Answer("as amount", LedgerAmounts(Ledgers(3000)));
  Connect();
  std::vector<std::pair<int, std::string>> told;
  session->FetchProgress = [&](std::uint8_t percent, std::string_view message) {
    told.emplace_back(percent, message);
  };
  (void)FetchDocuments();
  const auto count = [&told](std::string_view message) {
    return std::count_if(told.begin(), told.end(),
                         [message](const auto& one) { return one.second == message; });
  };
  EXPECT_EQ(count("Manipulating"), 1);
  EXPECT_EQ(count("manipulating"), 3000);
  EXPECT_TRUE(std::is_sorted(told.begin(), told.end(),
                             [](const auto& a, const auto& b) { return a.first < b.first; }));
  EXPECT_EQ(told.back(), (std::pair<int, std::string>(60, "manipulating")));
  for (const auto& [percent, message] : told) {
    if (message == "FetchingData") {
      EXPECT_LE(percent, 20);
    }
  }
  told.clear();
  (void)Documents(True);
  EXPECT_EQ(count("manipulating"), 3000);
  EXPECT_EQ(told.size(), 3000U) << "only the builder tells of a synchronous report";
  EXPECT_EQ(told.front().first, 20);
  EXPECT_EQ(told.back().first, 20);
}

TEST_F(ReportTest, DestroyedWhileFetchingItIsSilent) {
  FakeTable held = LedgerAmounts(Ledgers(4));
  held.held = true;
  books->Answer("as amount", std::move(held));
  Connect();
  EXPECT_EQ(Documents(False), nullptr);
  session.reset();
  books->Release();
  (void)WaitForEvents(std::chrono::milliseconds(30));
  EXPECT_EQ(events, EventLog{});
  EXPECT_EQ(module.bytFetchesDone, 0);
}

TEST_F(ReportTest, DestroyedByItsOwnFetchComplete) {
  Connect();
  RecordsetPtr kept;
  session->FetchComplete = [&](const RecordsetPtr& rowset, std::int32_t) {
    session.reset();
    kept = rowset;
  };
  EXPECT_EQ(Documents(False), nullptr);
  PumpUntil([&] { return kept != nullptr; });
  EXPECT_EQ(session, nullptr);
  EXPECT_EQ(kept->RecordCount(), 6);
}

TEST_F(ReportTest, DestroyedByAProgressEventAtAnyMoment) {
  // The first event is told while rows are fetched, the later ones while lines are written.
  for (int moment = 1; moment <= 6; ++moment) {
    session = std::make_unique<clsStolvane1>(books->Maker());
    Connect();
    bool delivered = false;
    session->FetchComplete = [&](const RecordsetPtr&, std::int32_t) { delivered = true; };
    int count = 0;
    session->FetchProgress = [&, moment](std::uint8_t, std::string_view) {
      if (++count == moment) session.reset();
    };
    EXPECT_EQ(Documents(False), nullptr);
    PumpUntil([&] { return session == nullptr || delivered; });
    (void)WaitForEvents(std::chrono::milliseconds(5));
    EXPECT_NE(session == nullptr, delivered);
  }
}

TEST_F(ReportTest, DestroyedInsideASynchronousReportItEndsEarlyAndStillReturns) {
  Connect();
  session->FetchProgress = [&](std::uint8_t, std::string_view) { session.reset(); };
  const RecordsetPtr report = Documents(True);
  EXPECT_EQ(session, nullptr);
  EXPECT_EQ(FirstColumn(*report), (std::vector<std::string>{"Ledger 1", "(null)", "Total"}));
}

TEST_F(ReportTest, EveryReportReadsOneStateOfTheBooks) {
  Connect();
  (void)Documents(True);
  EXPECT_EQ(books->Snapshots(), 1);
  (void)FetchDocuments();
  EXPECT_EQ(books->Snapshots(), 2);
}

TEST_F(ReportTest, POrderTextQueryRaisesNoEventAndLeavesTheReportInHandAlone) {
  books->Answer("as qry1", {.columns = {{.name = "itemname", .type = adVarChar}},
                            .rows = {{"Chain"}, {"Lamp"}}});
  Connect();
  module.bytFetchesDone = 1;
  const RecordsetPtr lines = session->POrderTextQuery("Desr1.Date >= #04/01/2004#");
  EXPECT_EQ(FirstColumn(*lines), (std::vector<std::string>{"Chain", "Lamp"}));
  EXPECT_EQ(lines->ActiveConnection(), nullptr);
  EXPECT_EQ(module.bytFetchesDone, 1);
  EXPECT_EQ(events, EventLog{});
  ASSERT_EQ(books->Queries().size(), 1U);
  EXPECT_NE(books->Queries()[0].find(" where desr1.date >= '04/01/2004' ) as qry1 "),
            std::string::npos);
}

TEST_F(ReportTest, POrderTextQueryWhileAReportFetchesLeavesItWhole) {
  FakeTable held = LedgerAmounts(Ledgers(4));
  held.held = true;
  books->Answer("as amount", std::move(held));
  books->Answer("as qry1",
                {.columns = {{.name = "itemname", .type = adVarChar}}, .rows = {{"Chain"}}});
  Connect();
  EXPECT_EQ(Documents(False), nullptr);
  EXPECT_EQ(session->POrderTextQuery("")->RecordCount(), 1);
  EXPECT_EQ(module.strSQL.find("where"), std::string::npos);
  books->Release();
  PumpUntil([&] { return !events.empty() && events.back() == "FetchComplete 0"; });
}

TEST_F(ReportTest, LedgersByCodeGivesTheConditionBackToTheCaller) {
  books->Answer("as name", {.columns = {{.name = "id", .type = adInteger},
                                        {.name = "name", .type = adVarChar}},
                            .rows = {{7, "Bank"}}});
  Connect();
  std::string codes = "2,41";
  const RecordsetPtr ledgers = session->LedgersByCode(3, codes, True);
  EXPECT_EQ(codes, " SUBGROUPNAME1.CODE IN (2,41) AND ");
  EXPECT_EQ(ledgers->Collect("NAME"), Variant("Bank"));
  EXPECT_EQ(ledgers->Collect("Id"), Variant(7));
}

// One item with the same price five times, and a sixth.
FakeTable PriceOf(const std::string& item, Currency price, const Variant& sixth) {
  std::vector<ColumnInfo> columns = {{.name = "itemname", .type = adVarChar}};
  for (int i = 1; i <= 6; ++i) {
    columns.push_back({.name = "price" + std::to_string(i), .type = adCurrency});
  }
  return {.columns = columns, .rows = {{item, price, price, price, price, price, sixth}}};
}

TEST_F(ReportTest, TheScaleOfAnotherReportPlaysNoPartInThePriceList) {
  const Currency price = Currency::FromTenThousandths(12505000);
  books->Answer("from pricelistdiscount1", PriceOf("Chain", price, price));
  Connect();
  const Date day = Date::FromYmd(2004, 1, 1);
  (void)session->Doc_Initial(3, 10, day, day, True, 1000);
  ASSERT_EQ(module.sngScale, 1000.0F);
  const RecordsetPtr list = session->MultiplePriceList(3, day, day, 1, 4, -1, True, "", "1 = 1");
  EXPECT_EQ(list->Collect("Price"), Variant("₹1,250.50"));
  EXPECT_EQ(list->Collect("Price6Sort"), Variant("₹1,250.50"));
}

TEST_F(ReportTest, ThePriceListsTwinsAreTexts) {
  books->Answer("from pricelistdiscount1", PriceOf("Chain", Currency(), Currency()));
  Connect();
  const Date day = Date::FromYmd(2004, 1, 1);
  const RecordsetPtr list = session->MultiplePriceList(3, day, day, 1, 4, -1, True, "", "1 = 1");
  const auto attributes = [&](const char* name) {
    const Field field = list->Fields()(name);
    EXPECT_EQ(field.Type(), adVarChar) << name;
    EXPECT_EQ(field.DefinedSize(), 255) << name;
    return field.Attributes();
  };
  for (const char* name :
       {"PriceSort", "Price2Sort", "Price3Sort", "Price4Sort", "Price5Sort", "Price6Sort"}) {
    EXPECT_EQ(attributes(name), 6) << name;
  }
  for (const char* name :
       {"SrNoSort", "itemnameSort", "CategoryNameSort", "ClassNameSort", "PartNoSort"}) {
    EXPECT_EQ(attributes(name), adFldIsNullable) << name;
  }
}

TEST_F(ReportTest, ANullPriceFailsThePriceListOnBothPaths) {
  const Currency one = Currency::FromTenThousandths(10000);
  books->Answer("from pricelistdiscount1", PriceOf("Chain", one, Null));
  Connect();
  const Date day = Date::FromYmd(2004, 1, 1);
  try {
    (void)session->MultiplePriceList(3, day, day, 1, 4, -1, True, "", "1 = 1");
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kInvalidUseOfNull);
  }
  EXPECT_EQ(session->MultiplePriceList(3, day, day, 1, 4, -1, False, "", "1 = 1"), nullptr);
  bool failed = false;
  for (int round = 0; round < 500 && !failed; ++round) {
    try {
      (void)WaitForEvents(std::chrono::milliseconds(20));
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kInvalidUseOfNull);
      failed = true;
    }
  }
  EXPECT_TRUE(failed);
}

TEST_F(ReportTest, ThreadsWithSessionsOfTheirOwnShareNothing) {
  constexpr int kThreads = 4;
  std::vector<std::string> queries(kThreads);
  std::vector<std::vector<std::int32_t>> counts(kThreads);
  std::vector<std::thread> threads;
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([&, number] {
      auto own_books = std::make_shared<FakeBooks>();
      own_books->Answer("as amount", LedgerAmounts(Ledgers(number)));
      clsStolvane1 own(own_books->Maker());
      own.SetLocale("en_IN");
      bool connected = false;
      own.OnConnect = [&](std::string_view) { connected = true; };
      own.SetConnection("", "", "books");
      while (!connected) (void)WaitForEvents(std::chrono::milliseconds(20));
      auto& delivered = counts[static_cast<std::size_t>(number)];
      own.FetchComplete = [&](const RecordsetPtr& rowset, std::int32_t) {
        delivered.push_back(rowset->RecordCount());
      };
      for (std::size_t round = 1; round <= 20; ++round) {
        (void)own.Doc_Initial(static_cast<std::uint8_t>(number), 10, Date::FromYmd(2003, 4, 1),
                              Date::FromYmd(2004, 3, 31), False);
        while (delivered.size() < round) (void)WaitForEvents(std::chrono::milliseconds(20));
      }
      queries[static_cast<std::size_t>(number)] =
          std::to_string(modStolvane1::OfThisThread()->bytYearno);
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (int number = 0; number < kThreads; ++number) {
    const auto at = static_cast<std::size_t>(number);
    EXPECT_EQ(queries[at], std::to_string(number));
    EXPECT_EQ(counts[at], std::vector<std::int32_t>(20, number + 2));
  }
}

}  // namespace
}  // namespace pstolvane1
