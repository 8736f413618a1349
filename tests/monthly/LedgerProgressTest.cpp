// Which steps a month ledger tells of while it is written.
#include <gtest/gtest.h>
#include <vector>

#include "golden/SmallBooks.h"
#include "session/clsStolvane1.h"
#include "session/data/MessageLoop.h"

namespace pstolvane1 {
namespace {

using golden::TextTable;

// A bolt in two godowns, both with an opening; it moves in July and in August, and has three costs.
// A nut beside it.
std::vector<TextTable> Books() {
  return {
      {"Uom1", {"Uom_id", "UomName"}, {{"1", "Nos"}, {"2", "Box"}}},
      {"ItemCategory1",
       {"ItemCategory_id", "CategoryName", "RelatedTo", "Deleted"},
       {{"1", "Goods", "0", "0"}}},
      {"Godown1",
       {"Godown_id", "GodownName", "RelatedTo", "Deleted"},
       {{"1", "Main", "0", "0"}, {"2", "Yard", "0", "0"}}},
      {"Items1",
       {"Item_id", "ItemName", "Uom_id", "AlternateUom_id", "RelationFormula", "ItemCategory_id",
        "Deleted", "YearOfCreation"},
       {{"1", "Bolt", "1", "2", "10", "1", "0", "1"}, {"2", "Nut", "1", "2", "10", "1", "0", "1"}}},
      {"StandardRate1",
       {"Item_id", "Rate", "DateFrom", "DateTo", "YearNo", "SaleOrPurchase"},
       {{"1", "5", "2003-04-01", "2003-04-30", "1", "0"},
        {"1", "6", "2003-05-01", "2003-05-31", "1", "0"},
        {"1", "7", "2003-06-01", "2003-06-30", "1", "0"}}},
      {"ItemDetailsAsLedger",
       {"Item_id", "YearNo", "OpeningQuantity", "OpeningValue"},
       {{"1", "1", "6", "30"}}},
      {"Desr1",
       {"Desr_id", "Date", "YearNo", "Vouchertype_id", "Optional", "Deleted"},
       {{"1", "2003-07-01", "1", "7", "0", "0"}, {"2", "2003-08-01", "1", "7", "0", "0"}}},
      {"DesrDetails1",
       {"DesrDetails_id", "Desr_id", "Item_id", "DesrDetDate", "YearNo", "QtyDespIn", "QtyDespOut",
        "Price", "AffectStock"},
       {{"1", "1", "1", "2003-07-01", "1", "2", "0", "5", "1"},
        {"2", "2", "1", "2003-08-01", "1", "2", "0", "5", "1"}}},
      {"GodownItem1",
       {"GodownItem_id", "Date", "YearNo", "Item_id", "Godown_id", "Batch_id", "Qty", "Rate",
        "IsAdded", "IsOpeningBal", "Optional", "DesrDetails_id", "GOriginalVouchertype_id"},
       {{"1", "", "1", "1", "1", "1", "4", "5", "1", "1", "0", "", "0"},
        {"2", "", "1", "1", "2", "1", "2", "5", "1", "1", "0", "", "0"},
        {"3", "2003-07-01", "1", "1", "1", "1", "2", "5", "1", "0", "0", "1", "7"},
        {"4", "2003-08-01", "1", "1", "2", "1", "2", "5", "1", "0", "0", "2", "7"}}}};
}

using Percents = std::vector<int>;

class LedgerProgress : public testing::Test {
 protected:
  LedgerProgress() {
    session_.SetLocale("en_IN");
    session_.SetConnection("", "", books_.ConnectionString(), False, Date::FromYmd(2003, 4, 1),
                           Date::FromYmd(2004, 3, 31));
    session_.FetchProgress = [this](std::uint8_t percent, std::string_view message) {
      if (message == "manipulating") steps_.push_back(percent);
    };
    session_.FetchComplete = [this](const RecordsetPtr&, std::int32_t) { complete_ = true; };
  }

  // Of July to September: item or category 1.
  Percents StepsOf(decltype(&clsStolvane1::Monthly_Itemwise) entry, enmValuationMethod method) {
    steps_.clear();
    complete_ = false;
    (session_.*entry)(1, Date::FromYmd(2003, 7, 1), Date::FromYmd(2003, 9, 30), method, 1, 0, False,
                      False, False, 1, True, True, True, True);
    for (int round = 0; round < 6000 && !complete_; ++round) {
      (void)WaitForEvents(std::chrono::milliseconds(10));
    }
    EXPECT_TRUE(complete_);
    return steps_;
  }
  Percents OfItem(enmValuationMethod method) {
    return StepsOf(&clsStolvane1::Monthly_Itemwise, method);
  }
  Percents OfCategory(enmValuationMethod method) {
    return StepsOf(&clsStolvane1::Monthly_Categorywise, method);
  }

  golden::SmallBooks books_{Books()};
  clsStolvane1 session_;

 private:
  Percents steps_;
  bool complete_ = false;
};

TEST_F(LedgerProgress, TheAverageStepsByMonthAndCountsTheCosts) {
  EXPECT_EQ(OfItem(AverageRate), (Percents{40, 60, 60}));
  EXPECT_EQ(OfCategory(AverageRate), (Percents{40, 60, 60}));
}

TEST_F(LedgerProgress, TheLayersStepByStockKey) { EXPECT_EQ(OfItem(FifoRate), (Percents{50, 60})); }

TEST_F(LedgerProgress, LastInFirstOutStepsByLineOnceMore) {
  EXPECT_EQ(OfItem(LifoRate), (Percents{50, 60, 60, 60, 60, 60}));
}

// Two openings, and then two keys in each of three months.
TEST_F(LedgerProgress, TheHuntedRatesStepByOpeningAndByKeyInEveryMonth) {
  for (const enmValuationMethod method :
       {LastPurchaseRate, LastSaleRate, standardrate, StandardPrice}) {
    EXPECT_EQ(OfItem(method), (Percents{50, 60, 60, 60, 60, 60, 60, 60})) << "method " << method;
  }
}

// Two of three rows are months of the period.
TEST_F(LedgerProgress, TheSimpleAverageStepsByRowOfAMonth) {
  EXPECT_EQ(OfItem(SimpleAvg), (Percents{40, 60}));
}

TEST_F(LedgerProgress, TheSimpleAverageOfAGroupStepsByItem) {
  EXPECT_EQ(OfCategory(SimpleAvg), (Percents{50, 60}));
}

TEST_F(LedgerProgress, OnlyTheAverageIsCutByACancel) {
  session_.CancelFetching(True);
  EXPECT_EQ(OfItem(AverageRate), (Percents{40}));
  EXPECT_FALSE(session_.ReportIsWhole());
  EXPECT_EQ(OfItem(FifoRate), (Percents{50, 60}));
  EXPECT_TRUE(session_.ReportIsWhole());
}

}  // namespace
}  // namespace pstolvane1
