// stolvane run and stolvane reports.
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "HostProgram.h"

namespace pstolvane1::host::test {
namespace {

using nlohmann::json;

class Run : public SampleHost {
 protected:
  static Words Sales(const Words& more = {}, const char* locale = "en_IN") {
    Words words = {"run",
                   "Doc_Initial",
                   "--books",
                   Books(),
                   "bytYearno=2",
                   "lngVouchertype_id=10",
                   "dtFromDate=2004-04-01",
                   "dtToDate=2004-04-30",
                   "--locale",
                   locale};
    words.insert(words.end(), more.begin(), more.end());
    return words;
  }
  static json SalesAsJson(Words more = {}, const char* locale = "en_IN") {
    more.insert(more.end(), {"--format", "json"});
    const Finished finished = Stolvane(Sales(more, locale));
    EXPECT_EQ(finished.status, 0) << finished.err;
    return json::parse(finished.out);
  }
};

TEST_F(Run, PrintsTheReportAsATable) {
  setenv("SOURCE_DATE_EPOCH", "1112313600", 1);
  const Finished finished = Stolvane(Sales());
  unsetenv("SOURCE_DATE_EPOCH");
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(finished.err, "");
  EXPECT_EQ(finished.out,
            "Documents by party\n"
            "sample\n"
            "voucher type: Vehicle Sale Bill, Branch Vehicle Sale · 01/04/2004 to 30/04/2004 · "
            "printed 01/04/2005\n"
            "\n"
            "Party                            Amount\n"
            "───────────────────────────────────────\n"
            "Jayant Hegde                 ₹44,489.25\n"
            "Prabhat Garage, Nizamabad    ₹59,126.29\n"
            "Sanjay Das                   ₹43,599.38\n"
            "Vinod Agashe                 ₹23,828.96\n"
            "───────────────────────────────────────\n"
            "Total                      ₹1,71,043.88\n"
            "═══════════════════════════════════════\n");
}

TEST_F(Run, JsonGivesEveryColumnTwinsIncluded) {
  const json report = SalesAsJson();
  EXPECT_TRUE(Stolvane(Sales({"--format", "json"}))
                  .out.starts_with(R"({"operation":"Doc_Initial","reportType":8,"anyCount":null,)"
                                   R"("columns":[{"name":"Ledger","type":8,"attributes":-1},)"));
  EXPECT_FALSE(report.contains("events"));
  EXPECT_EQ(report.at("columns"), json::parse(R"([
    {"name":"Ledger","type":8,"attributes":-1},
    {"name":"Amount","type":8,"attributes":-1},
    {"name":"Ledger_Id","type":3,"attributes":-1},
    {"name":"TotalLine","type":8,"attributes":-1},
    {"name":"LedgerSort","type":200,"attributes":32},
    {"name":"AmountSort","type":200,"attributes":6},
    {"name":"DummySort","type":20,"attributes":32}])"));
  ASSERT_EQ(report.at("rows").size(), 6U);
  const json first = report.at("rows").at(0);
  EXPECT_EQ(first.at(0), "Jayant Hegde");
  EXPECT_EQ(first.at(1), "₹44,489.25");
  EXPECT_TRUE(first.at(2).is_number_integer());
  EXPECT_EQ(first.at(3), nullptr);
  EXPECT_EQ(first.at(6), 1);
  EXPECT_EQ(report.at("rows").at(4).at(3), std::string(90, '_'));
}

TEST_F(Run, BothPathsGiveTheSameRowsAndTheAsynchronousOneItsCount) {
  const json at_once = SalesAsJson();
  const json fetched = SalesAsJson({"--async"});
  EXPECT_EQ(fetched.at("anyCount"), 0);
  EXPECT_EQ(fetched.at("rows"), at_once.at("rows"));
  EXPECT_EQ(fetched.at("columns"), at_once.at("columns"));
}

TEST_F(Run, EventsComeInTheirOrder) {
  const json events = SalesAsJson({"--async", "--events"}).at("events");
  EXPECT_EQ(events.at(0), json::parse(R"({"name":"OnConnect","ErrString":""})"));
  EXPECT_EQ(events.back(), json::parse(R"({"name":"FetchComplete","anyCount":0})"));
  std::vector<std::string> messages;
  for (const json& event : events) {
    if (event.at("name") != "FetchProgress") continue;
    EXPECT_LE(event.at("bytFetchPercent"), 60);
    const std::string message = event.at("strmessage");
    if (messages.empty() || messages.back() != message) messages.push_back(message);
  }
  EXPECT_EQ(messages, (std::vector<std::string>{"FetchingData", "Manipulating", "manipulating"}));
}

TEST_F(Run, ACancelledReportHasOneLineAndItsClosingLines) {
  EXPECT_EQ(SalesAsJson({"--cancel"}).at("rows").size(), 3U);
}

TEST_F(Run, TheLocaleShapesTheTexts) {
  EXPECT_EQ(SalesAsJson({}, "de_DE").at("rows").at(0).at(1), "44.489,25\u00A0€");
}

TEST_F(Run, WhoseNameStandsForAKeyFollowsTheOtherArguments) {
  const auto sales = [](const std::string& type, const std::string& id) {
    return Stolvane({"run", "CustomerItemwise_Analysis", "--books", Books(), "reptype=" + type,
                     "lngId=" + id, "dtFromDate=2004-04-01", "dtToDate=2005-03-31",
                     "blnDetailed=yes", "--format", "csv"});
  };
  const std::string of_party = sales("rtMovement_LedgerAnalysis", "35").out;
  EXPECT_NE(of_party.find("Total"), std::string::npos);
  EXPECT_EQ(sales("movement_ledgeranalysis", "Ambika Auto Parts, Surat").out, of_party);
  EXPECT_EQ(sales("rtMovement_ClassAnalysis", "Fast Moving").out,
            sales("rtMovement_ClassAnalysis", "2").out);
  const Finished unknown = sales("rtMovement_ItemAnalysis", "Fast Moving");
  EXPECT_EQ(unknown.status, 2);
  EXPECT_NE(unknown.err.find("there is no item \"Fast Moving\""), std::string::npos) << unknown.err;
}

TEST_F(Run, AnAliasShowsAnotherColumn) {
  const json rows = SalesAsJson({"--alias", "taLedger=LedgerNames1.LedgerName + ' !'"}).at("rows");
  EXPECT_EQ(rows.at(0).at(0), "Jayant Hegde !");
}

TEST_F(Run, SettingsAreRepeatedAndStandBeforeTheArguments) {
  const Finished finished =
      Stolvane({"run", "--books", Books(), "--alias", "taLedger=LedgerNames1.Ledger_id", "--alias",
                "taItem=Items1.PartNo", "--filter", "OptNo=1", "--filter", "btTypeOfentry=1",
                "LedgersByCode", "bytYearno=1", "sCode=41", "--format", "json"});
  ASSERT_EQ(finished.status, 0) << finished.err;
  EXPECT_EQ(json::parse(finished.out).at("rows"), json::parse("[[3, 3]]"));
}

TEST_F(Run, AFilterReachesTheStockStatements) {
  const auto inwards = [](const Words& filter) {
    Words words = {"run",
                   "StockDetails_Itemwise",
                   "--books",
                   Books(),
                   "--format",
                   "json",
                   "bytYearno=2",
                   "dtFromDate=2004-04-01",
                   "dtToDate=2005-03-31",
                   "ValuationMethod=AverageRate",
                   "lngAny_Id1=-1",
                   "lngAny_Id2=0",
                   "blnDetailed=false",
                   "blnAltUom=false",
                   "sngScale=1",
                   "blnOnlyItems=false",
                   "blnShowOpening=true",
                   "blnShowInwards=true",
                   "blnShowOutwards=true"};
    words.insert(words.end(), filter.begin(), filter.end());
    const Finished finished = Stolvane(words);
    EXPECT_EQ(finished.status, 0) << finished.err;
    return json::parse(finished.out);
  };
  const json all = inwards({});
  const json sales = inwards({"--filter", "strVouchertypeFilter=Vouchertype1.Vouchertype_id = 10"});
  EXPECT_EQ(all.at("reportType"), 110001);
  EXPECT_NE(all.at("rows").back(), sales.at("rows").back());
}

TEST_F(Run, ARowsetArgumentIsReadFromTheSameBooks) {
  // Nothing that is built takes one yet; the argument is refused by its name.
  const Finished finished = Stolvane(Sales({"--rowset", "recitem=select * from items1"}));
  EXPECT_EQ(finished.status, 2);
  EXPECT_NE(finished.err.find("there is no argument \"recitem\""), std::string::npos);
}

TEST_F(Run, AnEnumerationTakesItsNamesAndNumbers) {
  const auto status = [](const std::string& method) {
    return Stolvane({"run", "StockDetails_Classwise", "--books", Books(), "bytYearno=1",
                     "dtFromDate=2003-04-01", "dtToDate=2004-03-31", "ValuationMethod=" + method,
                     "lngAny_Id1=-1", "lngAny_Id2=0", "blnDetailed=false", "blnAltUom=false",
                     "sngScale=1", "blnOnlyItems=false", "blnShowOpening=true",
                     "blnShowInwards=true", "blnShowOutwards=true"});
  };
  const Finished by_name = status("LifoRate"), by_number = status("2");
  EXPECT_EQ(by_name.status, 0) << by_name.err;
  EXPECT_EQ(by_name.out, by_number.out);
}

TEST_F(Run, WhatReturnsNothingHasNoColumnsAndNoRows) {
  const Finished finished =
      Stolvane({"run", "UserPressedCancel", "--books", Books(), "--format", "json"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_EQ(json::parse(finished.out), json::parse(R"({"operation":"UserPressedCancel",
      "reportType":null,"anyCount":null,"columns":null,"rows":null})"));
}

TEST_F(Run, WritesFilesWholeAndInEveryFormat) {
  for (const std::string format : {"table", "csv", "json", "html", "xlsx", "sheet", "records"}) {
    const std::string file = folder.File("report." + format);
    const Finished finished = Stolvane(Sales({"--format", format, "--out", file}));
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_EQ(finished.out, "");
    const std::string content = books::test::Content(file);
    EXPECT_GT(content.size(), 100U) << format;
    if (format != "xlsx") {
      EXPECT_NE(content.find("Jayant Hegde"), std::string::npos) << format;
    }
    if (format == "csv") {
      EXPECT_EQ(content.substr(0, content.find('\r')),
                "Ledger,Amount,Ledger_Id,TotalLine,LedgerSort,AmountSort,DummySort");
    }
  }
  EXPECT_EQ(folder.Names().size(), 7U);  // no file in the making is left
}

TEST_F(Run, AWorkbookNeedsAFile) {
  const Finished finished = Stolvane(Sales({"--format", "xlsx"}));
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err,
            "stolvane: error 3001: a workbook goes into a file: name it with --out\n");
}

const std::string kLedgersByCode =
    "usage: stolvane run LedgersByCode --books CONNECTION bytYearno=... sCode=...\n"
    "\"stolvane reports LedgersByCode\" says what each of them is\n";

TEST_F(Run, AWrongCallShowsTheOperationsArguments) {
  struct Wrong {
    Words words;
    std::string told;
  };
  const std::string name = "stolvane: LedgersByCode: ";
  const std::string parser = "; \"stolvane run --help\" lists what it takes\n";
  const std::vector<Wrong> calls = {
      {{"bytYearno=1", "sCode="}, ""},
      {{"sCode="}, name + "bytYearno is missing, a whole number from 0 to 255\n"},
      {{},
       name + "2 arguments are missing:\n  bytYearno, a whole number from 0 to 255\n"
              "  sCode, a text\n"},
      {{"Year=1", "sCode="}, name + "there is no argument \"Year\"\n"},
      {{"bytYearnum=1", "sCode="},
       name + "there is no argument \"bytYearnum\"; did you mean \"bytYearno\"?\n"},
      {{"bytYearno=abc"}, name + "bytYearno takes a whole number from 0 to 255, not \"abc\"\n"},
      {{"bytYearno=256"},
       name + "bytYearno takes a whole number from 0 to 255, and 256 lies "
              "outside\n"},
      {{"nothing=1"}, name + "there is no argument \"nothing\"\n"},
      {{"bytYearno=1", "BYTYEARNO=2"}, name + "bytYearno is given twice\n"},
      {{"blnReport"}, "stolvane: \"blnReport\" is no argument: write NAME=VALUE\n"},
      {{"=1"}, "stolvane: \"=1\" is no argument: write NAME=VALUE\n"},
      {{"--rowset", "recitem"}, "stolvane: \"recitem\" is no rowset: write NAME=VALUE\n"},
      {{"--nothing"}, "stolvane: The following argument was not expected: --nothing" + parser},
      {{"--format", "paper"},
       "stolvane: --format: takes table, csv, json, html, xlsx, pdf, sheet or records, not "
       "paper" +
           parser},
      {{"--format", "1"},
       "stolvane: --format: takes table, csv, json, html, xlsx, pdf, sheet or records, not 1" +
           parser},
  };
  for (const auto& [wrong, told] : calls) {
    Words words = {"run", "LedgersByCode", "--books", Books()};
    words.insert(words.end(), wrong.begin(), wrong.end());
    const Finished finished = Stolvane(words);
    EXPECT_EQ(finished.status, told.empty() ? 0 : 2) << told;
    EXPECT_EQ(finished.out.empty(), !told.empty()) << told;
    EXPECT_EQ(finished.err, told.empty() ? "" : kLedgersByCode + told);
  }
}

TEST_F(Run, WithoutBooksItShowsTheOperationsArguments) {
  const Finished finished = Stolvane({"run", "LedgersByCode", "bytYearno=1", "sCode="});
  EXPECT_EQ(finished.status, 2);
  EXPECT_EQ(finished.err,
            kLedgersByCode +
                "stolvane: --books is required; \"stolvane run --help\" lists what it takes\n");
}

TEST_F(Run, AWrongSettingShowsTheArgumentsOfItsMember) {
  const auto told = [](const std::string& option, const std::string& setting) {
    const Finished finished = Stolvane(
        {"run", "LedgersByCode", "--books", Books(), "bytYearno=1", "sCode=", option, setting});
    EXPECT_EQ(finished.status, 2) << setting;
    EXPECT_EQ(finished.out, "");
    return finished.err;
  };
  const std::string filter = told("--filter", "OptNo=some");
  EXPECT_NE(filter.find("\nstolvane: SetFilter: OptNo takes a whole number"), std::string::npos);
  EXPECT_TRUE(filter.starts_with("usage: stolvane run SetFilter ")) << filter;
  const std::string unnamed = told("--filter", "OptNo");
  EXPECT_TRUE(unnamed.ends_with("\nstolvane: \"OptNo\" is no filter: write NAME=VALUE\n"))
      << unnamed;
  const std::string alias = told("--alias", "taNothing=1");
  EXPECT_TRUE(alias.ends_with("\nstolvane: SetAliases: there is no argument \"taNothing\"\n"))
      << alias;
  const std::string from = told("--books-from", "31/03/2004");
  EXPECT_NE(from.find("stolvane: SetConnection: dtFromDate takes a date as 2004-03-31"),
            std::string::npos)
      << from;
}

TEST_F(Run, BlnReportOf1TakesTheAsynchronousPathToItsEnd) {
  const Finished finished = Stolvane({"run", "LedgersByCode", "--books", Books(), "bytYearno=1",
                                      "sCode=41", "blnReport=1", "--format", "json", "--events"});
  ASSERT_EQ(finished.status, 0) << finished.err;
  const json report = json::parse(finished.out);
  EXPECT_EQ(report.at("anyCount"), 0);
  EXPECT_EQ(report.at("rows").size(), 1U);
  EXPECT_EQ(report.at("events").back(), json::parse(R"({"name":"FetchComplete","anyCount":0})"));
}

TEST_F(Run, UnknownAndUnbuiltOperationsAreTold) {
  const Finished unknown = Stolvane({"run", "Nope", "--books", Books()});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_EQ(unknown.err,
            "stolvane: there is no operation \"Nope\"; \"stolvane reports\" lists them\n");
  const Finished unbuilt = Stolvane({"run", "RtoSalesDetails", "--books", Books(),
                                     "strFilter=1 = 1", "blnReport=true", "reptype=210"});
  EXPECT_NE(unbuilt.status, 0);
  EXPECT_EQ(Stolvane({"nothing"}).status, 2);
  EXPECT_EQ(Stolvane({}).status, 2);
  EXPECT_EQ(Stolvane({"--help"}).status, 0);
}

TEST_F(Run, ReportsListsWhatIsBuiltAndDescribesOne) {
  const Finished listed = Stolvane({"reports"});
  EXPECT_EQ(listed.status, 0);
  EXPECT_NE(listed.out.find("\n  Doc_Initial                            Amounts of one kind of "
                            "document per ledger.\n"),
            std::string::npos);
  EXPECT_EQ(listed.out.find("(not in this version)"), std::string::npos);
  const Finished one = Stolvane({"reports", "doc_initial"});
  EXPECT_EQ(one.status, 0);
  EXPECT_TRUE(one.out.starts_with("  Doc_Initial bytYearno lngVouchertype_id dtFromDate dtToDate"));
  EXPECT_EQ(Stolvane({"reports", "DocInitial"}).err,
            "stolvane: there is no operation \"DocInitial\"; did you mean \"Doc_Initial\"?; "
            "\"stolvane reports\" lists them\n");
  const Finished as_json = Stolvane({"reports", "--json"});
  EXPECT_EQ(as_json.status, 0);
  EXPECT_TRUE(json::parse(as_json.out).is_array() || json::parse(as_json.out).is_object());
}

}  // namespace
}  // namespace pstolvane1::host::test
