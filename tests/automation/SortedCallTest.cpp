// Which calls give a report in detail, for the rules of sorting.
#include <gtest/gtest.h>

#include "automation/CallInWords.h"
#include "automation/SortedCall.h"
#include "session/ReportType.h"
#include "session/enmValuationMethod.h"

namespace pstolvane1::automation {
namespace {

SortedReport Asked(const std::string& operation, std::vector<std::string> arguments) {
  CallWords words;
  words.operation = operation;
  words.arguments = std::move(arguments);
  const CallInWords call(words);
  return SortedAs(call.Called(), call.Values());
}

SortedReport AskedSales(const std::string& type, const std::string& one,
                        const std::string& detailed) {
  return Asked("CustomerItemwise_Analysis",
               {"reptype=" + type, "lngId=" + one, "blnDetailed=" + detailed,
                "dtFromDate=2004-04-01", "dtToDate=2005-03-31", "sngScale=1"});
}

TEST(SortedCall, IsInDetailWhereTheFlagSaysSo) {
  EXPECT_FALSE(AskedSales("rtMovement_ItemAnalysis", "-1", "false").detailed);
  EXPECT_TRUE(AskedSales("rtMovement_ItemAnalysis", "-1", "true").detailed);
}

TEST(SortedCall, IsInDetailWhereOneIsAskedFor) {
  EXPECT_TRUE(AskedSales("rtMovement_ItemAnalysis", "5", "false").detailed);
  // Related items have lines for details by the flag alone.
  const SortedReport related =
      AskedSales("rtMovement_SalesReturns_ItemRelationAnalysis", "5", "false");
  EXPECT_FALSE(related.detailed);
  EXPECT_EQ(related.asked, rtMovement_SalesReturns_ItemRelationAnalysis);
}

TEST(SortedCall, KnowsWhatDecidesTheReport) {
  const SortedReport stock =
      Asked("StockDetails_Itemwise",
            {"bytYearno=2", "dtFromDate=2004-04-01", "dtToDate=2005-03-31",
             "ValuationMethod=FifoRate", "blnDetailed=false", "blnAltUom=false", "sngScale=1"});
  EXPECT_EQ(stock.operation, "StockDetails_Itemwise");
  EXPECT_EQ(stock.asked, FifoRate);
  EXPECT_FALSE(stock.detailed);
  // By class, as a summary of layers is.
  EXPECT_EQ(SortText(stock, "ValueSort"), "DummySort, ValueSort");
}

}  // namespace
}  // namespace pstolvane1::automation
