// The engine takes the indexes that were made for the costliest statements of the reports.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/books/SampleBooks.h"
#include "tests/books/BooksOnDisk.h"

namespace pstolvane1::books {
namespace {

using test::Database;
using test::Folder;
using testing::HasSubstr;

class Indexes : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = new Folder;
    SampleBooks(folder_->File("a.db"));
  }
  static void TearDownTestSuite() {
    delete folder_;
    folder_ = nullptr;
  }
  static std::string Plan(const std::string& select) {
    std::string plan;
    for (const auto& row : Database(folder_->File("a.db")).Rows("EXPLAIN QUERY PLAN " + select)) {
      plan += row.substr(row.rfind('|') + 1) + "\n";
    }
    return plan;
  }

  static Folder* folder_;
};
Folder* Indexes::folder_ = nullptr;

TEST_F(Indexes, SumByStockKeyWithoutSortingOrTouchingTheTable) {
  EXPECT_EQ(Plan("SELECT Item_id, Godown_id, Batch_id, YearNo, "
                 "sum(CASE WHEN IsAdded = 1 THEN Qty ELSE -Qty END), sum(Qty * Rate) "
                 "FROM GodownItem1 WHERE Optional = 0 AND YearNo < 4 "
                 "AND (Date <= '2006-03-31' OR Date IS NULL) "
                 "GROUP BY Item_id, Godown_id, Batch_id, YearNo"),
            "SCAN GodownItem1 USING COVERING INDEX GodownItem1_Item\n");
}

TEST_F(Indexes, WalkTheMovementsOfAllItemsInTheOrderOfDaysBothWays) {
  for (const std::string way : {"ASC", "DESC"}) {
    EXPECT_EQ(Plan("SELECT Item_id, Godown_id, Batch_id, Qty, Rate, YearNo, Date, IsOpeningBal, "
                   "IsAdded FROM GodownItem1 WHERE (Date <= '2006-03-31' OR IsOpeningBal = 1) "
                   "AND Optional = 0 ORDER BY YearNo " +
                   way + ", Date " + way + ", DesrDetails_id " + way),
              "SCAN GodownItem1 USING COVERING INDEX GodownItem1_Order\n");
  }
}

TEST_F(Indexes, FindTheMovementsOfOneItem) {
  EXPECT_EQ(Plan("SELECT sum(Qty * Rate) FROM GodownItem1 WHERE Item_id = 20 AND Optional = 0"),
            "SEARCH GodownItem1 USING COVERING INDEX GodownItem1_Item (Item_id=?)\n");
}

TEST_F(Indexes, WalkTheLayersOfOneItemWithoutSortingOrTouchingTheTable) {
  EXPECT_EQ(Plan("SELECT Godown_id, Batch_id, Qty, Rate, YearNo, Date, IsOpeningBal, IsAdded FROM "
                 "GodownItem1 WHERE Item_id = 20 AND (Date <= '2006-03-31' OR IsOpeningBal = 1) "
                 "AND Optional = 0 ORDER BY Godown_id, Batch_id, YearNo, Date, DesrDetails_id, "
                 "GodownItem_id"),
            "SEARCH GodownItem1 USING COVERING INDEX GodownItem1_Item (Item_id=?)\n");
}

TEST_F(Indexes, FindWhatExecutesAMovementWithoutTouchingTheTable) {
  EXPECT_THAT(
      Plan("SELECT g.GDesr_id, (SELECT sum(abs(e.Qty)) FROM GodownItem1 e WHERE "
           "e.Item_id = g.Item_id AND e.Godown_id = g.Godown_id AND e.Batch_id = g.Batch_id "
           "AND e.GSrNo = g.GSrNo AND e.GRelatedDesr_id = g.GDesr_id "
           "AND e.GRelatedYearNo = g.YearNo AND e.GDesrOptional = 0) FROM GodownItem1 g "
           "WHERE g.GLedger_id = 12"),
      HasSubstr("SEARCH e USING COVERING INDEX GodownItem1_RelatedDesr"));
}

TEST_F(Indexes, FindTheLinesOfADocumentAndOfAPeriod) {
  EXPECT_THAT(Plan("SELECT * FROM Desr1 d JOIN DesrDetails1 l ON l.Desr_id = d.Desr_id "
                   "WHERE d.Ledger_id = 20 AND d.Date BETWEEN '2005-04-01' AND '2005-04-30'"),
              HasSubstr("SEARCH l USING INDEX DesrDetails1_Desr"));
  EXPECT_EQ(Plan("SELECT Item_id, sum(QtyDespIn), sum(QtyDespOut * Price) FROM DesrDetails1 "
                 "WHERE DesrDetDate BETWEEN '2005-04-01' AND '2005-04-30' AND AffectStock = 1"),
            "SEARCH DesrDetails1 USING COVERING INDEX DesrDetails1_Date "
            "(DesrDetDate>? AND DesrDetDate<?)\n");
}

TEST_F(Indexes, FindTheBillsOfAVoucherAndTheirEntries) {
  EXPECT_THAT(Plan("SELECT (SELECT sum(AmountDr - AmountCr) FROM BillByBillDetails1 b "
                   "JOIN BillByBill1 o ON o.CrVoucher_id = d.Related_id "
                   "AND o.BillByBill_id = b.BillByBill_id) FROM Desr1 d WHERE d.Desr_id = 5"),
              testing::AllOf(HasSubstr("BillByBill1_CrVoucher (CrVoucher_id=?)"),
                             HasSubstr("USING COVERING INDEX BillByBillDetails1_Bill")));
}

TEST_F(Indexes, FindAVehicleByItsNumbers) {
  EXPECT_THAT(Plan("SELECT * FROM Batches1 WHERE BatchCode = 'x'"),
              HasSubstr("USING INDEX Batches1_Code"));
  EXPECT_THAT(Plan("SELECT * FROM Batches1 WHERE EngineNo = 'x'"),
              HasSubstr("USING INDEX Batches1_EngineNo"));
  EXPECT_THAT(Plan("SELECT * FROM Terms1 WHERE RegistrationNumber = 'x'"),
              HasSubstr("USING INDEX Terms1_Registration"));
}

}  // namespace
}  // namespace pstolvane1::books
