// What a page is told of the reports.
#include <algorithm>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <set>

#include "automation/Masters.h"
#include "automation/Operations.h"
#include "host/ServeCommand.h"
#include "tests/books/BooksOnDisk.h"
#include "tests/viewer/ViewerBooks.h"
#include "viewer/Forms.h"
#include "viewer/Question.h"

namespace pstolvane1::viewer {
namespace {

using Json = nlohmann::json;

const Json& SampleForms() {
  static const Json forms = Json::parse(FormsAsJson(host::BooksFor(books::test::SampleFile())));
  return forms;
}

Json ReportNamed(const std::string& operation) {
  for (const Json& family : SampleForms()["families"]) {
    for (const Json& report : family["reports"]) {
      if (report["operation"] == operation) return report;
    }
  }
  return nullptr;
}

Json ArgumentNamed(const std::string& operation, const std::string& name) {
  const Json report = ReportNamed(operation);
  for (const Json& argument : report["arguments"]) {
    if (argument["name"] == name) return argument;
  }
  return nullptr;
}

TEST(Forms, ListEveryReportOnceUnderItsFamily) {
  std::set<std::string> listed;
  for (const Json& family : SampleForms()["families"]) {
    for (const Json& report : family["reports"]) {
      EXPECT_TRUE(listed.insert(report["operation"]).second) << report["operation"];
    }
  }
  std::set<std::string> reports;
  for (const automation::Operation& operation : automation::Operations()) {
    if (IsReport(operation)) reports.insert(std::string(operation.name));
  }
  // But for the one whose query every database refuses.
  EXPECT_EQ(reports.erase("RtoSalesDetails1"), 1U);
  EXPECT_EQ(listed, reports);
  EXPECT_EQ(SampleForms()["families"].size(), 7U);
}

TEST(Forms, AskInWords) {
  for (const Json& family : SampleForms()["families"]) {
    EXPECT_NE(family["words"], "") << family;
    for (const Json& report : family["reports"]) {
      for (const Json& argument : report["arguments"]) {
        EXPECT_NE(argument["label"], argument["name"]) << report["operation"];
        EXPECT_NE(argument["help"], automation::kNotUsed) << argument["name"];
      }
    }
  }
}

TEST(Forms, OfferValuesByNameWithTheOnesThatGiveAReport) {
  const Json values = ArgumentNamed("StockDetails_Itemwise", "ValuationMethod")["values"];
  ASSERT_EQ(values.size(), 8U);
  EXPECT_EQ(values[0], (Json{{"name", "FifoRate"}, {"words", "First in, first out"}}));
  EXPECT_EQ(ArgumentNamed("Commission_Initial", "reptype")["values"],
            Json::parse(R"([{"name": "rtCommission_Initial_Employeewise", "words": "Employee"},
                            {"name": "rtCommission_Initial_Itemwise", "words": "Item"}])"));
}

TEST(Forms, KnowWhatKeysLeadToAndWhatStandsForAll) {
  const Json group = ArgumentNamed("StockDetails_Categorywise", "lngAny_Id1");
  EXPECT_EQ(group["lists"][0]["names"], "groups");
  EXPECT_EQ(group["all"], "-1");
  EXPECT_EQ(group["preset"], "-1");
  const Json item = ArgumentNamed("Monthly_Itemwise", "lngAny_Id1");
  EXPECT_EQ(item["lists"][0]["names"], "items");
  EXPECT_EQ(item["all"], "");
  EXPECT_EQ(item["label"], "Item");
  EXPECT_EQ(ArgumentNamed("MultiplePriceList", "cosiderforsih")["preset"], "Items1.Item_id > 0");
}

TEST(Forms, PickAKeyFromTheListThatAnotherArgumentDecides) {
  const Json lists = ArgumentNamed("CustomerItemwise_Analysis", "lngId")["lists"];
  ASSERT_EQ(lists.size(), 7U);
  EXPECT_EQ(lists[2], (Json{{"argument", "reptype"},
                            {"value", "rtMovement_GroupAnalysis"},
                            {"names", "partygroups"},
                            {"label", "Party group"}}));
  for (const Json& family : SampleForms()["families"]) {
    for (const Json& report : family["reports"]) {
      for (const Json& argument : report["arguments"]) {
        for (const Json& list : argument["lists"]) {
          EXPECT_NE(automation::FindMaster(list["names"].get<std::string>()), nullptr);
          if (list["argument"] == "") continue;
          const std::string lists_of = argument["lists"].dump();
          const Json decides = ArgumentNamed(report["operation"], list["argument"]);
          for (const Json& value : decides["values"]) {
            EXPECT_NE(lists_of.find(value["name"].dump()), std::string::npos)
                << report["operation"] << ' ' << value;
          }
        }
      }
    }
  }
}

TEST(Forms, OfferScalesInWords) {
  const Json values = ArgumentNamed("StockDetails_Itemwise", "sngScale")["values"];
  ASSERT_EQ(values.size(), 5U);
  EXPECT_EQ(values[0], (Json{{"name", "1"}, {"words", "as they are"}}));
  EXPECT_EQ(values[2], (Json{{"name", "100000"}, {"words", "in lakhs"}}));
}

TEST(Forms, OfferANumberThatStandsForAChoiceInWords) {
  const Json arranged = ArgumentNamed("MechanicLabourReportDaily", "btTypeOfReport");
  EXPECT_EQ(arranged["values"], Json::parse(R"([{"name": "1", "words": "By vehicle model"},
                                                {"name": "0", "words": "By labour item"}])"));
  EXPECT_EQ(arranged["preset"], "1");
  EXPECT_EQ(ArgumentNamed("HypoReport", "btTypeOfReport")["values"][1]["name"], "1");
  EXPECT_EQ(ArgumentNamed("AutoSearchServices", "lngSubRelatedTo")["values"].size(), 2U);
  EXPECT_EQ(ArgumentNamed("StockDetails_Itemwise", "bytYearno")["values"].size(), 0U);
}

TEST(Forms, BeginASearchWithAllThatThereIsToFind) {
  EXPECT_EQ(ArgumentNamed("AutoSearch", "strVouchertype")["preset"], "Batches1.EngineNo <> ''");
  EXPECT_EQ(ArgumentNamed("AutoSearch", "strCriteria")["preset"], "");
  for (const char* const of_all_days : {"AutoSearch", "AutoSearchServices", "ServiceReportRegno"}) {
    EXPECT_EQ(ArgumentNamed(of_all_days, "dtFromDate"), nullptr) << of_all_days;
  }
  EXPECT_EQ(ArgumentNamed("AutoSearchServices", "strVouchertypeFilter")["preset"],
            "Vouchertype1.SubRelatedTo = 39");
}

TEST(Forms, TellTheYearsOfTheBooks) {
  const Json years = SampleForms()["years"];
  ASSERT_EQ(years.size(), 3U);
  EXPECT_EQ(
      years[1],
      (Json{{"number", 2}, {"name", "2004-05"}, {"from", "2004-04-01"}, {"to", "2005-03-31"}}));
}

TEST(Names, AreSearchedInAnyCase) {
  const Books books = host::BooksFor(books::test::SampleFile());
  const Json found = Json::parse(NamesAsJson(books, automation::kItems, "TYRE 2.75"));
  ASSERT_FALSE(found.empty());
  for (const Json& one : found) {
    EXPECT_NE(one["name"].get<std::string>().find("Tyre 2.75"), std::string::npos);
  }
  EXPECT_EQ(books.name_of(automation::kItems, found[0]["key"]), found[0]["name"]);
  EXPECT_EQ(NamesAsJson(books, automation::kItems, "no such thing"), "[]");
}

TEST(Names, AreFiftyAtMost) {
  const Books books = host::BooksFor(books::test::SampleFile());
  EXPECT_LE(Json::parse(NamesAsJson(books, automation::kItems, "")).size(), 50U);
  EXPECT_GT(Json::parse(NamesAsJson(books, automation::kParties, "")).size(), 10U);
}

}  // namespace
}  // namespace pstolvane1::viewer
