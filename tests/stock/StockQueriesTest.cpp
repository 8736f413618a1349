// The texts that the front end is tested with are those that the stock statements send.
#include <fstream>
#include <gtest/gtest.h>

#include "movements/GroupQuery.h"
#include "movements/RateQueries.h"
#include "session/QueryText.h"
#include "stock/Average.h"
#include "stock/FifoLifo.h"
#include "stock/LastRateQuery.h"
#include "stock/SimpleAverage.h"
#include "stock/StandardRateQuery.h"
#include "tests/SourcePath.h"

namespace pstolvane1 {
namespace {

const DocumentFilter kNoFilter;
const DocumentFilter kPurchasesOfParties{"Vouchertype1.Vouchertype_id in (7,10,12)", "", 1, 1};
const DocumentFilter kOptionalOfOthers{"", "", 2, 2};
const std::string kCounted = "considerforsih = 1", kTwoStates = "1,2";
const Date kYearFrom = Date::FromYmd(2003, 4, 1);

StockArguments Asked(enmValuationMethod method, StockTree tree = StockTree::kItem,
                     const std::string& condition = "", std::uint8_t year = 2) {
  return {.tree = tree,
          .bytYearno = year,
          .dtFromDate = kYearFrom,
          .dtToDate = Date::FromYmd(2004, 3, 31),
          .ValuationMethod = method,
          .condition = condition};
}

std::string Sent(const std::string& file) {
  std::ifstream in(SourcePath("tests/queries/stock/") + file);
  EXPECT_TRUE(in) << file;
  std::string comment, text;
  std::getline(in, comment);
  std::getline(in, text);
  return text;
}

void ExpectSent(const std::string& file, const std::string& composed,
                StockTree tree = StockTree::kItem, const typAliases& aliases = {}) {
  std::string text = NormaliseQueryText(composed, aliases);
  const ColumnSwap swap = GroupSwap(tree);
  if (!swap.from.empty()) text = ReplaceAll(text, swap.from, swap.to);
  EXPECT_EQ(text, Sent(file)) << file;
}

struct Tree {
  StockTree tree;
  std::string name;
};
const Tree kTrees[] = {{StockTree::kCategory, "StockDetails_Categorywise_"},
                       {StockTree::kClass, "StockDetails_Classwise_"},
                       {StockTree::kGodown, "StockDetails_Godownwise_"}};

TEST(StockQueries, OfTheAverage) {
  const auto average = [](const std::string& condition, const DocumentFilter& filter,
                          std::uint8_t year = 2) {
    return ComposeAverage(Asked(AverageRate, StockTree::kItem, condition, year), filter);
  };
  ExpectSent("StockDetails_Itemwise_avg.sql", average("", kNoFilter));
  ExpectSent("StockDetails_Itemwise_avg_first_year.sql", average("", kNoFilter, 1));
  ExpectSent("StockDetails_Itemwise_avg_filters.sql", average("", kPurchasesOfParties));
  ExpectSent("StockDetails_Itemwise_avg_optional.sql", average("", kOptionalOfOthers));
  ExpectSent("StockDetails_Itemwise_avg_states.sql",
             average(" Where " + ItemStateClause(kCounted, kTwoStates), kNoFilter));
  ExpectSent("StockDetails_Itemwise_avg_aliases.sql", average("", kNoFilter), StockTree::kItem,
             {.taItem = "Items1.ItemName + ' (' + Items1.ItemPartNo + ')'",
              .taGodown = "Godown1.ShortName",
              .taBatch = "Batches1.EngineNo"});
  for (const Tree& tree : kTrees) {
    ExpectSent(tree.name + "avg.sql", ComposeAverage(Asked(AverageRate, tree.tree), kNoFilter),
               tree.tree);
  }
  ExpectSent("StockDetails_Classwise_avg_states.sql",
             ComposeAverage(
                 Asked(AverageRate, StockTree::kClass, " Where " + ItemStateClause("", kTwoStates)),
                 kNoFilter),
             StockTree::kClass);
}

TEST(StockQueries, OfFifoAndLifo) {
  ExpectSent("StockDetails_Itemwise_fifo.shape", ComposeFifoLifo(Asked(FifoRate), kNoFilter));
  ExpectSent("StockDetails_Itemwise_lifo.shape", ComposeFifoLifo(Asked(LifoRate), kNoFilter));
  ExpectSent("StockDetails_Itemwise_lifo_filters.shape",
             ComposeFifoLifo(Asked(LifoRate), kPurchasesOfParties));
  ExpectSent("StockDetails_Itemwise_fifo_states.shape",
             ComposeFifoLifo(
                 Asked(FifoRate, StockTree::kItem, " And " + ItemStateClause(kCounted, kTwoStates)),
                 kNoFilter));
  for (const Tree& tree : kTrees) {
    ExpectSent(tree.name + "fifo.shape", ComposeFifoLifo(Asked(FifoRate, tree.tree), kNoFilter),
               tree.tree);
  }
}

TEST(StockQueries, OfTheLastPurchaseAndTheLastSale) {
  ExpectSent("StockDetails_Itemwise_last.shape",
             ComposeLastRate(Asked(LastPurchaseRate), kNoFilter));
  ExpectSent("StockDetails_Itemwise_last_filters.shape",
             ComposeLastRate(Asked(LastPurchaseRate), kPurchasesOfParties));
  ExpectSent("StockDetails_Itemwise_last_states.shape",
             ComposeLastRate(Asked(LastPurchaseRate, StockTree::kItem,
                                   " And " + ItemStateClause(kCounted, kTwoStates)),
                             kNoFilter));
  ExpectSent("StockDetails_Itemwise_last_purchase_rates.sql",
             ComposeActualRates(LastPurchaseRate, "03/31/2004", 2));
  ExpectSent("StockDetails_Itemwise_last_sale_rates.sql",
             ComposeActualRates(LastSaleRate, "03/31/2004", 2));
  for (const Tree& tree : kTrees) {
    ExpectSent(tree.name + "last.shape", ComposeLastRate(Asked(LastSaleRate, tree.tree), kNoFilter),
               tree.tree);
  }
}

TEST(StockQueries, OfTheStandards) {
  ExpectSent("StockDetails_Itemwise_standard.sql",
             ComposeStandardRate(Asked(standardrate), kNoFilter));
  ExpectSent("StockDetails_Itemwise_standard_filters.sql",
             ComposeStandardRate(Asked(standardrate), kPurchasesOfParties));
  ExpectSent(
      "StockDetails_Itemwise_standard_states.sql",
      ComposeStandardRate(
          Asked(StandardPrice, StockTree::kItem, " And " + ItemStateClause("", "2")), kNoFilter));
  ExpectSent("StockDetails_Itemwise_standard_cost_actuals.sql",
             ComposeActualRates(standardrate, "03/31/2004", 2));
  ExpectSent("StockDetails_Itemwise_standard_price_actuals.sql",
             ComposeActualRates(StandardPrice, "03/31/2004", 2));
  ExpectSent("standard_costs.sql", ComposeStandardRates(StandardRates::kCosts, "03/31/2004", 2));
  ExpectSent("standard_rates.sql", ComposeStandardRates(StandardRates::kAll, "03/31/2004", 2));
  for (const Tree& tree : kTrees) {
    ExpectSent(tree.name + "standard.sql",
               ComposeStandardRate(Asked(standardrate, tree.tree), kNoFilter), tree.tree);
  }
}

TEST(StockQueries, OfTheSimpleAverage) {
  StockArguments part = Asked(SimpleAvg);
  part.dtFromDate = Date::FromYmd(2003, 7, 1);
  part.dtToDate = Date::FromYmd(2003, 9, 30);
  ExpectSent("StockDetails_Itemwise_simple_items.sql", ComposeSimpleAverageItems(part));
  part.condition = " And " + ItemStateClause(kCounted, kTwoStates);
  ExpectSent("StockDetails_Itemwise_simple_items_states.sql", ComposeSimpleAverageItems(part));
  ExpectSent("StockDetails_Itemwise_simple_year.sql", ComposeSimpleAverageYear(2));
  ExpectSent("StockDetails_Itemwise_simple_period.sql",
             ComposeSimpleAveragePeriod(part, kYearFrom, kNoFilter));
  ExpectSent("StockDetails_Itemwise_simple_period_filters.sql",
             ComposeSimpleAveragePeriod(part, kYearFrom, kPurchasesOfParties));
  for (const StockTree tree : {StockTree::kCategory, StockTree::kClass}) {
    ExpectSent(tree == StockTree::kCategory ? "StockDetails_Categorywise_simple_items.sql"
                                            : "StockDetails_Classwise_simple_items.sql",
               ComposeSimpleAverageItems(Asked(SimpleAvg, tree)), tree);
  }
}

TEST(StockQueries, OfTheTrees) {
  ExpectSent("groups_category.sql", ComposeGroupQuery(StockTree::kCategory));
  ExpectSent("groups_class.sql", ComposeGroupQuery(StockTree::kClass));
  ExpectSent("groups_godown.sql", ComposeGroupQuery(StockTree::kGodown));
}

TEST(StockQueries, WhateverNamesTheCategoryMeansTheTreesGroup) {
  EXPECT_EQ(GroupSwap(StockTree::kClass).from, "items1.itemcategory_id");
  EXPECT_EQ(GroupSwap(StockTree::kClass).to, "items1.itemclass_id as itemcategory_id");
  EXPECT_EQ(GroupSwap(StockTree::kGodown).to, "godown1.godown_id as itemcategory_id");
  for (const StockTree tree : {StockTree::kItem, StockTree::kCategory}) {
    EXPECT_TRUE(GroupSwap(tree).from.empty());
  }
}

}  // namespace
}  // namespace pstolvane1
