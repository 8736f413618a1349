// A report in windows, sorted, filtered, followed and drawn.
#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "host/ServeCommand.h"
#include "session/data/Error.h"
#include "tests/books/BooksOnDisk.h"
#include "tests/viewer/ViewerBooks.h"

namespace pstolvane1::viewer {
namespace {

using automation::WrongCall;
using Json = nlohmann::json;

constexpr std::size_t kAll = 1000;

Json LinesOf(ReportRun& run, const Wish& wish, std::size_t from = 0, std::size_t count = kAll) {
  return Json::parse(run.Ask([&](ShownReport& shown) { return shown.Lines(wish, from, count); }));
}

// The cells of a column from top to bottom; 0 is the first shown one.
std::vector<std::string> ColumnOf(const Json& lines, std::size_t column) {
  std::vector<std::string> cells;
  for (const Json& line : lines["lines"]) cells.push_back(line[column + 4]);
  return cells;
}

TEST(ShownReport, ShowsTheCellsOfTheRowset) {
  ReportRun run(test::SalesByParty(), {});
  ASSERT_EQ(test::Ended(run).stage, ReportRun::Stage::kDone);
  clsStolvane1 session;
  RecordsetPtr report;
  session.FetchComplete = [&](const RecordsetPtr& rowset, std::int32_t) { report = rowset; };
  automation::CallInWords(test::SalesByParty()).Run(session);
  while (report == nullptr) WaitForEvents(std::chrono::milliseconds(10));
  const Json lines = LinesOf(run, {});
  ASSERT_EQ(lines["count"], report->RecordCount());
  std::size_t at = 0;
  for (const Recordset::Row row : report->Rows()) {
    const Json& line = lines["lines"][at++];
    EXPECT_EQ(line[4], row["Ledger"].IsNull() ? "" : row["Ledger"].ToText());
    EXPECT_EQ(line[5], row["Amount"].IsNull() ? "" : row["Amount"].ToText());
  }
  EXPECT_EQ(lines["lines"].back()[0], "total");
}

TEST(ShownReport, GivesWindows) {
  ReportRun run(test::SalesByParty(), {});
  ASSERT_EQ(test::Ended(run).stage, ReportRun::Stage::kDone);
  const Json all = LinesOf(run, {}), some = LinesOf(run, {}, 2, 2);
  ASSERT_EQ(some["lines"].size(), 2U);
  EXPECT_EQ(some["lines"][0], all["lines"][2]);
  EXPECT_EQ(some["count"], all["count"]);
  EXPECT_TRUE(LinesOf(run, {}, 100'000, 5)["lines"].empty());
}

TEST(ShownReport, SortsByTheTwinAndKeepsTheTotalLast) {
  ReportRun run(
      test::Asked("StockDetails_Itemwise", {"bytYearno=2", "dtFromDate=2004-04-01",
                                            "dtToDate=2005-03-31", "ValuationMethod=AverageRate",
                                            "blnDetailed=false", "blnAltUom=false", "sngScale=1"}),
      {});
  const ReportRun::State state = test::Ended(run);
  ASSERT_EQ(state.stage, ReportRun::Stage::kDone) << state.problem;
  const Json head = Json::parse(state.head);
  std::size_t sorted = 0;
  for (const Json& column : head["columns"]) {
    if (!column["sorts"]) continue;
    ++sorted;
    const Json up = LinesOf(run, {column["name"], false, {}});
    const Json down = LinesOf(run, {column["name"], true, {}});
    EXPECT_EQ(up["lines"].back()[0], "total") << column;
    EXPECT_EQ(down["lines"].back(), up["lines"].back()) << column;
    std::vector<int> places;
    for (const Json& line : up["lines"]) places.push_back(line[2]);
    std::ranges::sort(places);
    for (std::size_t at = 0; at < places.size(); ++at) {
      ASSERT_EQ(places[at], static_cast<int>(at)) << column;
    }
  }
  EXPECT_GT(sorted, 3U);
  const std::vector<std::string> names = ColumnOf(LinesOf(run, {"ItemName", false, {}}), 0);
  EXPECT_TRUE(std::is_sorted(names.begin(), names.end() - 2));
}

TEST(ShownReport, FiltersByTextAndByNumber) {
  ReportRun run(test::SalesByParty(), {});
  ASSERT_EQ(test::Ended(run).stage, ReportRun::Stage::kDone);
  const Json text = LinesOf(run, {"", false, {{"Ledger", "GARAGE"}}});
  EXPECT_EQ(ColumnOf(text, 0), std::vector<std::string>{"Prabhat Garage, Nizamabad"});
  const Json number = LinesOf(run, {"Amount", true, {{"Amount", ">= 44489.25"}}});
  EXPECT_EQ(ColumnOf(number, 0),
            (std::vector<std::string>{"Prabhat Garage, Nizamabad", "Jayant Hegde"}));
  EXPECT_EQ(LinesOf(run, {"", false, {{"Amount", "< 30000"}}})["count"], 1);
  EXPECT_EQ(LinesOf(run, {"", false, {{"Amount", "=43599.38"}}})["count"], 1);
  EXPECT_EQ(LinesOf(run, {"", false, {{"Ledger", ""}}})["count"], LinesOf(run, {})["count"]);
}

TEST(ShownReport, RefusesAColumnThatIsNotThere) {
  ReportRun run(test::SalesByParty(), {});
  ASSERT_EQ(test::Ended(run).stage, ReportRun::Stage::kDone);
  EXPECT_THROW(LinesOf(run, {"Nobody", false, {}}), WrongCall);
  EXPECT_THROW(LinesOf(run, {"", false, {{"Nobody", "x"}}}), WrongCall);
}

TEST(ShownReport, LeadsFromALineToTheReportBehindIt) {
  ReportRun run(test::SalesByParty(), {});
  ASSERT_EQ(test::Ended(run).stage, ReportRun::Stage::kDone);
  const Json lines = LinesOf(run, {});
  EXPECT_EQ(lines["lines"][0][1], 1);
  EXPECT_EQ(lines["lines"].back()[1], 0);
  const Json roads = Json::parse(run.Ask([](ShownReport& shown) { return shown.RoadsOf(0); }));
  ASSERT_EQ(roads.size(), 2U);
  EXPECT_EQ(roads[0]["operation"], "CustomerItemDaily_Analysis");
  EXPECT_EQ(roads[0]["arguments"]["reptype"], "rtMovement_LedgerDailyAnalysis");
  EXPECT_EQ(roads[0]["arguments"]["dtToDate"], "2004-04-30");
  std::vector<std::string> arguments;
  for (const auto& [name, text] : roads[0]["arguments"].items()) {
    arguments.push_back(name + "=" + text.get<std::string>());
  }
  ReportRun behind(test::Asked(roads[0]["operation"], arguments), {});
  EXPECT_EQ(test::Ended(behind).stage, ReportRun::Stage::kDone);
  EXPECT_GT(LinesOf(behind, {})["count"], 1);
}

TEST(ShownReport, DrawsSharesWithoutTheTotal) {
  ReportRun run(test::SalesByParty(), {});
  ASSERT_EQ(test::Ended(run).stage, ReportRun::Stage::kDone);
  const Json picture = Json::parse(run.Ask([](ShownReport& shown) { return shown.PictureAt(0); }));
  EXPECT_EQ(picture["kind"], "shares");
  EXPECT_EQ(picture["names"], Json::parse(R"(["Prabhat Garage, Nizamabad", "Jayant Hegde",
                                              "Sanjay Das", "Vinod Agashe"])"));
  EXPECT_EQ(picture["series"][0]["values"],
            Json::parse("[59126.29, 44489.25, 43599.38, 23828.96]"));
  EXPECT_THROW(run.Ask([](ShownReport& shown) { return shown.PictureAt(1); }), WrongCall);
}

TEST(ShownReport, DrawsTheMonthsOfAnItem) {
  ReportRun run(
      test::Asked("Monthly_Itemwise", {"bytYearno=2", "dtFromDate=2004-04-01",
                                       "dtToDate=2005-03-31", "ValuationMethod=AverageRate",
                                       "lngAny_Id1=25", "blnAltUom=false", "sngScale=1"}),
      {});
  const ReportRun::State state = test::Ended(run);
  ASSERT_EQ(state.stage, ReportRun::Stage::kDone) << state.problem;
  EXPECT_EQ(Json::parse(state.head)["pictures"],
            Json::parse(R"(["Quantity by month", "Value by month"])"));
  const Json picture = Json::parse(run.Ask([](ShownReport& shown) { return shown.PictureAt(0); }));
  EXPECT_EQ(picture["names"].size(), 13U);
  EXPECT_EQ(picture["series"].size(), 3U);
  const Json roads = Json::parse(run.Ask([](ShownReport& shown) { return shown.RoadsOf(1); }));
  ASSERT_EQ(roads.size(), 1U);
  EXPECT_EQ(roads[0]["arguments"]["dtFromDate"], "2004-04-01");
  EXPECT_EQ(roads[0]["arguments"]["dtToDate"], "2004-04-30");
  EXPECT_EQ(roads[0]["arguments"]["Item_id"], "25");
}

TEST(ShownReport, ExportsWhatIsSeen) {
  ReportRun run(test::SalesByParty(), {});
  ASSERT_EQ(test::Ended(run).stage, ReportRun::Stage::kDone);
  const ShownReport::Seen seen{{"Amount", true, {{"Amount", "> 44,000"}}}, {}};
  EXPECT_EQ(run.Ask([&](ShownReport& shown) { return shown.Csv(seen); }),
            "\xEF\xBB\xBFLedger,Amount\r\n"
            "\"Prabhat Garage, Nizamabad\",59126.29\r\n"
            "Jayant Hegde,44489.25\r\n");
  EXPECT_EQ(run.Ask([&](ShownReport& shown) {
    return shown.Csv({seen.wish, {"Amount"}});
  }),
            "\xEF\xBB\xBFLedger\r\n\"Prabhat Garage, Nizamabad\"\r\nJayant Hegde\r\n");
  const std::string page = run.Ask([&](ShownReport& shown) { return shown.Html(seen); });
  EXPECT_LT(page.find("Prabhat Garage"), page.find("Jayant Hegde"));
  EXPECT_EQ(page.find("Sanjay Das"), std::string::npos);
  EXPECT_EQ(run.Ask([&](ShownReport& shown) { return shown.Xlsx(seen); }).substr(0, 2), "PK");
  EXPECT_EQ(run.Ask([&](ShownReport& shown) { return shown.Pdf(seen, {}); }).substr(0, 5), "%PDF-");
}

// A line's owner is the last less deep line before it: the same before and after a sort.
std::map<int, int> OwnersOf(const Json& lines) {
  std::map<int, int> owners;
  std::vector<std::pair<int, int>> open;  // level and place
  for (const Json& line : lines["lines"]) {
    if (line[0] == "total" || line[0] == "rule" || line[0] == "spacer") continue;
    const int place = line[2], level = line[3];
    while (!open.empty() && open.back().first >= level) open.pop_back();
    owners[place] = open.empty() ? -1 : open.back().second;
    open.emplace_back(level, place);
  }
  return owners;
}

TEST(ShownReport, SortsATreeWithinItsGroups) {
  automation::CallWords words = test::Asked(
      "StockDetails_Categorywise",
      {"bytYearno=2", "dtFromDate=2004-04-01", "dtToDate=2005-03-31", "ValuationMethod=AverageRate",
       "lngAny_Id1=-1", "blnOnlyItems=false", "blnDetailed=true", "blnAltUom=false", "sngScale=1"});
  ReportRun run(words, {}, host::BooksFor(books::test::SampleFile()).present);
  const ReportRun::State state = test::Ended(run);
  ASSERT_EQ(state.stage, ReportRun::Stage::kDone) << state.problem;
  const Json plain = LinesOf(run, {});
  const std::map<int, int> owners = OwnersOf(plain);
  EXPECT_GT(std::ranges::count_if(owners, [](const auto& one) { return one.second >= 0; }), 10);
  for (const bool descending : {false, true}) {
    const Json sorted = LinesOf(run, {"QtyOp", descending, {}});
    EXPECT_EQ(OwnersOf(sorted), owners);
    EXPECT_NE(ColumnOf(sorted, 0), ColumnOf(plain, 0));
  }
  // The file has the groups as they are seen.
  const Wish wish{"QtyOp", true, {}};
  const std::string csv = run.Ask([&](ShownReport& shown) { return shown.Csv({wish, {}}); });
  std::size_t at = 0;
  for (const std::string& name : ColumnOf(LinesOf(run, wish), 0)) {
    if (name.empty()) continue;
    at = csv.find(name, at);
    ASSERT_NE(at, std::string::npos) << name;
  }
}

// What Head has of it.
Json WarningsOfStock(const std::string& from, const std::string& to) {
  ReportRun run(
      test::Asked("StockDetails_Itemwise", {"bytYearno=2", "dtFromDate=" + from, "dtToDate=" + to,
                                            "ValuationMethod=AverageRate", "lngAny_Id1=-1",
                                            "blnDetailed=false", "blnAltUom=false", "sngScale=1"}),
      {}, host::BooksFor(books::test::SampleFile()).present);
  return Json::parse(test::Ended(run).head)["warnings"];
}

TEST(ShownReport, TellsWhatIsLikelyAMistakeInItsCall) {
  EXPECT_EQ(WarningsOfStock("2004-04-01", "2005-03-31"), Json::array());
  EXPECT_EQ(WarningsOfStock("2005-03-31", "2004-04-01"),
            Json({"the period ends on 2004-04-01, before it begins on 2005-03-31"}));
}

TEST(Arrangement, FiltersLinesWithTheDocumentThatTheyBelongTo) {
  automation::CallWords words = test::Asked(
      "BillWiseQuery",
      {"bytYearno=2", "dtFromDate=2004-04-01", "dtToDate=2005-03-31", "blnDetailed=false"});
  words.asynchronous = false;
  words.rowsets = {"recitem=select Item_id as ItemNew_id, ItemName from Items1"};
  ReportRun run(words, {}, host::BooksFor(books::test::SampleFile()).present);
  const ReportRun::State state = test::Ended(run);
  ASSERT_EQ(state.stage, ReportRun::Stage::kDone) << state.problem;
  const Json head = Json::parse(state.head);
  std::size_t party = 0;
  for (const Json& column : head["columns"]) {
    if (column["name"] == "LedgerName") break;
    ++party;
  }
  const Json all = LinesOf(run, {});
  const std::map<int, int> owners = OwnersOf(all);
  const std::string name = all["lines"][0][party + 4];
  ASSERT_FALSE(name.empty());
  std::set<int> of_party;
  for (const Json& line : all["lines"]) {
    const int place = line[2], owner = owners.contains(place) ? owners.at(place) : -1;
    if (line[party + 4] == name || of_party.contains(owner)) of_party.insert(place);
  }
  std::set<int> left;
  const Json filtered = LinesOf(run, {"", false, {{"LedgerName", name}}});
  for (const Json& line : filtered["lines"]) left.insert(line[2].get<int>());
  EXPECT_EQ(left, of_party);
  EXPECT_GT(left.size(), 1U);
}

TEST(Arrangement, ReadsNumbersAsTheyAreTyped) {
  ReportRun run(test::SalesByParty(), {});
  ASSERT_EQ(test::Ended(run).stage, ReportRun::Stage::kDone);
  for (const char* text : {">44489", "> 44,489", "> 44489.0", ">\u20b944,489.00"}) {
    EXPECT_EQ(LinesOf(run, {"", false, {{"Amount", text}}})["count"], 2) << text;
  }
  automation::CallWords words = test::SalesByParty();
  words.locale = "de_DE";
  ReportRun german(words, {});
  ASSERT_EQ(test::Ended(german).stage, ReportRun::Stage::kDone);
  for (const char* text : {"> 44.489", "> 44489,2"}) {
    EXPECT_EQ(LinesOf(german, {"", false, {{"Amount", text}}})["count"], 2) << text;
  }
}

}  // namespace
}  // namespace pstolvane1::viewer
