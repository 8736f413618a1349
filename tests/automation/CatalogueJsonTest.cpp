// The catalogue as JSON says what the tables say.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <string>

#include "automation/CatalogueJson.h"
#include "automation/Operations.h"

namespace pstolvane1::automation {
namespace {

using Json = nlohmann::json;

class Catalogue : public testing::Test {
 protected:
  const Json& Operation(const std::string& name) const {
    for (const Json& one : all_["operations"]) {
      if (one["name"] == name) return one;
    }
    ADD_FAILURE() << name;
    return all_;
  }

  const Json all_ = Json::parse(CatalogueAsJson());
};

TEST_F(Catalogue, HoldsAllOperationsEventsAndEnumerations) {
  EXPECT_EQ(all_["operations"].size(), Operations().size());
  EXPECT_EQ(all_["events"].size(), 3U);
  EXPECT_EQ(all_["enumerations"][0]["values"].size(), 140U);
  EXPECT_EQ(all_["enumerations"][1]["values"][6],
            Json::parse(R"({"name":"standardrate","value":7})"));
}

TEST_F(Catalogue, DescribesAnOperation) {
  Json ledgers = Operation("LedgersByCode");
  EXPECT_EQ(ledgers, Json::parse(R"({
    "name": "LedgersByCode", "family": "analysis", "built": true, "launch": "fetch",
    "returns": "rowset", "help": "The ledgers of some subgroups.",
    "reportTypes": [{"name": "rtLedgersByCode", "value": 9}],
    "arguments": [
      {"name": "bytYearno", "type": "byte", "optional": false, "default": null,
       "byReference": false, "read": true, "help": "The number of the accounting year."},
      {"name": "sCode", "type": "text", "optional": false, "default": null, "byReference": true,
       "read": true, "help": "Subgroup codes with commas between, or nothing; comes back as a condition."},
      {"name": "blnReport", "type": "boolean", "optional": false, "default": null,
       "byReference": false, "read": true, "help": "True returns the report; anything else fetches it in the background and delivers it by FetchComplete."}
    ]})"));
}

TEST_F(Catalogue, SaysHowAReportIsSorted) {
  EXPECT_EQ(Operation("Doc_Initial")["sorting"],
            Json::parse(R"([{"when": "always", "dummySort": "class", "sort": "DummySort, {}"}])"));
  EXPECT_EQ(Operation("ServiceReportRegno")["sorting"], Json::parse(R"([
    {"when": "in summary", "dummySort": "group", "sort": "DummySort, {}"},
    {"when": "in detail", "dummySort": "none", "sort": ""}])"));
  EXPECT_EQ(Operation("StockDetails_Itemwise")["sorting"][0]["when"], "in summary, FIFO and LIFO");
}

TEST_F(Catalogue, GivesDefaultsAsValuesOfTheirType) {
  const Json& arguments = Operation("MultiplePriceList")["arguments"];
  EXPECT_EQ(arguments[4]["default"], -1);
  EXPECT_EQ(arguments[6]["default"], true);
  EXPECT_EQ(arguments[7]["default"], "");
  EXPECT_EQ(Operation("BillWiseQuery")["arguments"][11]["default"], 1.0);
  EXPECT_EQ(Operation("BillWiseQuery")["arguments"][13]["default"], "1899-12-30");
  EXPECT_EQ(Operation("BillWiseQuery")["arguments"][14]["default"], nullptr);
}

TEST_F(Catalogue, SaysWhatDecidesTheReportType) {
  const Json& analysis = Operation("CustomerItemwise_Analysis");
  EXPECT_EQ(analysis["decidedBy"], "reptype");
  EXPECT_EQ(analysis["arguments"][0]["enumeration"], "ReportType");
  EXPECT_EQ(
      analysis["reportTypes"][0],
      Json::parse(R"({"name":"rtMovement_SalesReturns_LedgerAnalysis","value":10,"when":508})"));
}

TEST_F(Catalogue, ListsTheMembersOfARecord) {
  const Json& alias = Operation("SetAliases")["arguments"][0];
  EXPECT_EQ(alias["type"], "record");
  EXPECT_EQ(alias["members"].size(), 8U);
  EXPECT_EQ(alias["members"][7], "taTransporter");
}

}  // namespace
}  // namespace pstolvane1::automation
