#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/books/SampleBooks.h"
#include "session/data/Error.h"
#include "tests/books/BooksOnDisk.h"

namespace pstolvane1::books {
namespace {

using test::Content;
using test::Database;
using test::Folder;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(SampleBooks, AreTheSameBytesForTheSameArgumentsOnly) {
  const Folder folder;
  SampleBooks(folder.File("a.db"), 2'000, 7);
  SampleBooks(folder.File("b.db"), 2'000, 7);
  SampleBooks(folder.File("c.db"), 2'000, 8);
  EXPECT_TRUE(Content(folder.File("a.db")) == Content(folder.File("b.db")));
  EXPECT_FALSE(Content(folder.File("a.db")) == Content(folder.File("c.db")));
}

TEST(SampleBooks, TellTheirProgressUpToTheEnd) {
  const Folder folder;
  std::int64_t last = 0;
  bool rising = true;
  SampleBooks(folder.File("a.db"), 2'000, 1,
              [&](std::string_view stage, std::int64_t done, std::int64_t total) {
                if (stage != "movements") return;
                EXPECT_EQ(total, 2'000);
                rising = rising && done >= last;
                last = done;
              });
  EXPECT_TRUE(rising);
  EXPECT_EQ(last, 2'000);
}

TEST(SampleBooks, RefuseSizesOutsideTheirBounds) {
  const Folder folder;
  for (const std::int64_t size : {std::int64_t{1'999}, std::int64_t{10'000'001}}) {
    try {
      SampleBooks(folder.File("a.db"), size);
      FAIL();
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kArgumentOutOfRange);
      EXPECT_EQ(error.Description(),
                "sample books have from 2000 to 10000000 movements, not " + std::to_string(size));
    }
  }
  EXPECT_THAT(folder.Names(), IsEmpty());
}

// What must hold in books of every size. Each count is of rows that break a rule.
class SampleRules : public testing::TestWithParam<std::int64_t> {
 protected:
  static void SetUpTestSuite() { folder_ = new Folder; }
  static void TearDownTestSuite() {
    delete folder_;
    folder_ = nullptr;
  }
  void SetUp() override {
    const std::string file = folder_->File(std::to_string(GetParam()) + ".db");
    if (!std::filesystem::exists(file)) SampleBooks(file, GetParam());
    books_ = std::make_unique<Database>(file);
  }
  long long Count(const std::string& from) { return books_->Whole("SELECT count(*) FROM " + from); }

  static Folder* folder_;
  std::unique_ptr<Database> books_;
};
Folder* SampleRules::folder_ = nullptr;

INSTANTIATE_TEST_SUITE_P(Sizes, SampleRules, testing::Values(2'000, 20'000),
                         [](const auto& about) { return std::to_string(about.param); });

TEST_P(SampleRules, HaveExactlyTheMovementsAskedFor) {
  EXPECT_EQ(Count("GodownItem1"), GetParam());
}

TEST_P(SampleRules, EveryVoucherBalances) {
  EXPECT_GT(Count("VoucherDetails1"), 1'000);
  EXPECT_EQ(Count("(SELECT Voucher_id FROM VoucherDetails1 GROUP BY Voucher_id "
                  "HAVING abs(sum(DebitAmt) - sum(CreditAmt)) > 0.0001)"),
            0);
}

// What a line charges, in the unit and at the rate that its two flags name.
constexpr const char* kCharge =
    "CASE WHEN IsWarranty THEN 0 "
    "WHEN IsAltRate = 0 AND IsAltUnit = 0 THEN (BilledQty + QtyReturned) * Price "
    "WHEN IsAltRate = 0 THEN BilledQty * RelationFormula * Price "
    "WHEN IsAltUnit THEN BilledQty * AltRate ELSE BilledQty / RelationFormula * AltRate END";

TEST_P(SampleRules, EveryDocumentIsWorthItsLinesWithTheirTax) {
  EXPECT_EQ(Count("(SELECT TotalAmount, sum(round(charge, 2) + round(charge * Salestax / 100, 2)) "
                  "AS lines FROM (SELECT d.Desr_id, TotalAmount, Salestax, " +
                  std::string(kCharge) +
                  " AS charge FROM Desr1 d JOIN DesrDetails1 l ON l.Desr_id = d.Desr_id "
                  "JOIN Items1 i ON i.Item_id = l.Item_id) GROUP BY Desr_id "
                  "HAVING abs(TotalAmount - lines) > 0.011 * count(*))"),
            0);
}

TEST_P(SampleRules, NoDocumentIsWithoutLines) {
  EXPECT_EQ(Count("Desr1 WHERE Desr_id NOT IN (SELECT Desr_id FROM DesrDetails1)"), 0);
}

TEST_P(SampleRules, EveryLineOfGoodsMovesItsQuantityUnlessItsDocumentIsDeleted) {
  EXPECT_EQ(Count("(SELECT QtyDespIn + QtyDespOut AS quantity, d.Deleted AS gone, "
                  "ConsiderForSih AS goods, coalesce(sum(Qty), 0) AS moved FROM DesrDetails1 l "
                  "JOIN Desr1 d ON d.Desr_id = l.Desr_id JOIN Items1 i ON i.Item_id = l.Item_id "
                  "LEFT JOIN GodownItem1 g ON g.DesrDetails_id = l.DesrDetails_id "
                  "GROUP BY l.DesrDetails_id "
                  "HAVING moved <> CASE WHEN gone OR NOT goods THEN 0 ELSE quantity END)"),
            0);
}

TEST_P(SampleRules, ALineGoesOneWay) {
  EXPECT_EQ(Count("DesrDetails1 WHERE (QtyDespIn <> 0) + (QtyDespOut <> 0) + (QtyReturned <> 0) "
                  "<> 1"),
            0);
  EXPECT_EQ(Count("GodownItem1 g JOIN DesrDetails1 l ON l.DesrDetails_id = g.DesrDetails_id "
                  "WHERE IsAdded <> (QtyDespIn > 0)"),
            0);
}

TEST_P(SampleRules, MovementsRepeatTheirDocument) {
  EXPECT_EQ(Count("GodownItem1 g JOIN Desr1 d ON d.Desr_id = g.GDesr_id "
                  "JOIN Vouchertype1 v ON v.Vouchertype_id = d.Vouchertype_id "
                  "WHERE g.Date <> d.Date OR g.YearNo <> d.YearNo OR GLedger_id <> Ledger_id "
                  "OR GRefNo <> DesrRefno OR GPrefix <> Prefix OR GSuffix <> Suffix "
                  "OR GOriginalVouchertype_id <> v.RelatedTo OR GDesrOptional <> d.Optional"),
            0);
  EXPECT_EQ(Count("GodownItem1 g JOIN DesrDetails1 l ON l.DesrDetails_id = g.DesrDetails_id "
                  "JOIN Desr1 d ON d.Desr_id = l.Desr_id WHERE g.Item_id <> l.Item_id "
                  "OR g.GDesr_id <> l.Desr_id OR g.Rate <> l.Price "
                  "OR g.Optional <> (d.Optional OR NOT AffectStock)"),
            0);
}

TEST_P(SampleRules, OnlyOpeningMovementsHaveNoDocumentAndNoDate) {
  EXPECT_GT(Count("GodownItem1 WHERE IsOpeningBal"), 0);
  EXPECT_EQ(Count("GodownItem1 WHERE IsOpeningBal <> (GDesr_id IS NULL) "
                  "OR IsOpeningBal <> (Date IS NULL) "
                  "OR IsOpeningBal <> (GOriginalVouchertype_id = 0)"),
            0);
  EXPECT_EQ(Count("GodownItem1 WHERE GDesr_id NOT IN (SELECT Desr_id FROM Desr1)"), 0);
}

TEST_P(SampleRules, DatesLieInTheirYear) {
  for (const std::string table : {"Desr1", "GodownItem1"}) {
    EXPECT_EQ(Count(table + " WHERE Date NOT BETWEEN (2002 + YearNo) || '-04-01' "
                            "AND (2003 + YearNo) || '-03-31'"),
              0)
        << table;
  }
  EXPECT_EQ(Count("Desr1 WHERE JobCardDate NOT BETWEEN (2002 + YearNo) || '-04-01' AND Date"), 0);
}

TEST_P(SampleRules, DocumentNumbersAreUniqueInTheirTypeAndYear) {
  EXPECT_EQ(Count("(SELECT 1 FROM Desr1 GROUP BY Vouchertype_id, YearNo, Prefix, DesrRefno, Suffix "
                  "HAVING count(*) > 1)"),
            0);
  EXPECT_EQ(Count("(SELECT 1 FROM Desr1 WHERE IsJobCard GROUP BY YearNo, JobCardRefno "
                  "HAVING count(*) > 1)"),
            0);
}

TEST_P(SampleRules, NothingRefersToWhatIsNotThere) {
  const std::vector<std::vector<std::string>> references = {
      {"Desr1", "Ledger_id", "LedgerNames1", "Ledger_id"},
      {"Desr1", "Employee_id", "Employee1", "Employee_id"},
      {"Desr1", "Related_id", "Voucher1", "Voucher_id"},
      {"Desr1", "Vouchertype_id", "Vouchertype1", "Vouchertype_id"},
      {"DesrDetails1", "Item_id", "Items1", "Item_id"},
      {"GodownItem1", "Batch_id", "Batches1", "Batch_id"},
      {"GodownItem1", "Godown_id", "Godown1", "Godown_id"},
      {"GodownItem1", "Color_id", "Color1", "Color_id"},
      {"GodownItem1", "GRelatedDesr_id", "Desr1", "Desr_id"},
      {"Batches1", "Item_id", "Items1", "Item_id"},
      {"Items1", "Uom_id", "Uom1", "Uom_id"},
      {"Items1", "AlternateUom_id", "Uom1", "Uom_id"},
      {"Items1", "ItemCategory_id", "ItemCategory1", "ItemCategory_id"},
      {"Items1", "ItemClass_id", "ItemClass1", "ItemClass_id"},
      {"Terms1", "Desr_id", "Desr1", "Desr_id"},
      {"Terms1", "Vehicle_id", "Items1", "Item_id"},
      {"Terms1", "Mechanic_id", "MechanicName", "Mechanic_id"},
      {"Terms1", "ServiceType_id", "JobcardType", "Jobcardtype_id"},
      {"VoucherDetails1", "Ledger_id", "LedgerNames1", "Ledger_id"},
      {"VoucherDetails1", "Subgroup_id", "SubgroupName1", "Subgroup_id"},
      {"BillByBill1", "CrVoucher_id", "Voucher1", "Voucher_id"},
      {"BillByBillDetails1", "BillByBill_id", "BillByBill1", "BillByBill_id"},
      {"BillByBillDetails1", "Voucher_id", "Voucher1", "Voucher_id"},
      {"EmployeeCommision", "Item_id", "Items1", "Item_id"},
      {"ItemRelationShip", "ItemRelated_id", "Items1", "Item_id"}};
  for (const auto& one : references) {
    EXPECT_EQ(Count(one[0] + " WHERE " + one[1] + " IS NOT NULL AND " + one[1] +
                    " NOT IN (SELECT " + one[3] + " FROM " + one[2] + ")"),
              0)
        << one[0] << "." << one[1];
  }
  EXPECT_EQ(Count("GodownItem1 g JOIN Batches1 b ON b.Batch_id = g.Batch_id "
                  "WHERE b.Item_id <> g.Item_id OR b.Color_id IS NOT g.Color_id"),
            0);
}

TEST_P(SampleRules, AnItemWithoutLotsHasOneBatchInEachGodown) {
  EXPECT_EQ(Count("(SELECT i.Item_id FROM Items1 i LEFT JOIN Batches1 b ON b.Item_id = i.Item_id "
                  "WHERE NOT MaintainBatches AND ConsiderForSih GROUP BY i.Item_id "
                  "HAVING count(Batch_id) <> 5)"),
            0);
  EXPECT_EQ(Count("(SELECT 1 FROM GodownItem1 g JOIN Items1 i ON i.Item_id = g.Item_id "
                  "WHERE NOT MaintainBatches GROUP BY g.Item_id, Godown_id "
                  "HAVING count(DISTINCT Batch_id) > 1)"),
            0);
}

TEST_P(SampleRules, YearlyTotalsOfAnItemAgreeWithItsMovements) {
  EXPECT_GT(Count("ItemDetailsAsLedger"), 100);
  EXPECT_EQ(Count("(SELECT t.Item_id, t.YearNo, "
                  "OpeningQuantity + TotalPurchaseQuantity - TotalSalesQuantity AS closing, "
                  "sum(CASE WHEN IsAdded THEN Qty ELSE -Qty END) AS moved "
                  "FROM ItemDetailsAsLedger t JOIN GodownItem1 g ON g.Item_id = t.Item_id "
                  "AND g.YearNo <= t.YearNo AND Optional = 0 GROUP BY t.Item_id, t.YearNo "
                  "HAVING abs(closing - moved) > 0.0001)"),
            0);
  EXPECT_EQ(Count("(SELECT t.Item_id, TotalPurchaseValue, TotalSalesValue, "
                  "sum(QtyDespIn * Price) AS bought, sum(QtyDespOut * Price) AS sold "
                  "FROM ItemDetailsAsLedger t JOIN DesrDetails1 l ON l.Item_id = t.Item_id "
                  "AND l.YearNo = t.YearNo AND AffectStock JOIN Desr1 d ON d.Desr_id = l.Desr_id "
                  "AND d.Optional = 0 AND Deleted = 0 GROUP BY t.Item_id, t.YearNo "
                  "HAVING abs(TotalPurchaseValue - bought) > 0.011 * count(*) "
                  "OR abs(TotalSalesValue - sold) > 0.011 * count(*))"),
            0);
}

TEST_P(SampleRules, AVehicleIsBoughtOnceAndSoldAtMostOnce) {
  EXPECT_EQ(Count("(SELECT g.Batch_id FROM GodownItem1 g JOIN Items1 i ON i.Item_id = g.Item_id "
                  "WHERE SeatingCapacity IS NOT NULL GROUP BY g.Batch_id "
                  "HAVING sum(IsAdded) <> 1 OR sum(NOT IsAdded) > 1 OR sum(Qty) > 2)"),
            0);
  // A state of 2 is a vehicle that was sold.
  EXPECT_EQ(Count("Batches1 b WHERE EngineNo <> '' AND (QtyOnHand = 2) <> EXISTS (SELECT 1 FROM "
                  "GodownItem1 g WHERE g.Batch_id = b.Batch_id AND NOT IsAdded)"),
            0);
  EXPECT_EQ(Count("Desr1 d JOIN Vouchertype1 v ON v.Vouchertype_id = d.Vouchertype_id "
                  "AND SubRelatedTo = 10 JOIN Terms1 t ON t.Desr_id = d.Desr_id "
                  "JOIN GodownItem1 g ON g.GDesr_id = d.Desr_id "
                  "JOIN Batches1 b ON b.Batch_id = g.Batch_id "
                  "WHERE BatchCode <> ChasisNumber OR EngineNo <> EngineNumber"),
            0);
}

TEST_P(SampleRules, ABillIsPaidByNoMoreThanItIsWorth) {
  EXPECT_EQ(Count("(SELECT sum(CASE WHEN RefType = 'new' THEN 1 ELSE -1 END * "
                  "(AmountDr + AmountCr)) AS due FROM BillByBillDetails1 WHERE BillByBill_id IN "
                  "(SELECT BillByBill_id FROM BillByBillDetails1 WHERE RefType = 'new') "
                  "GROUP BY BillByBill_id HAVING due < -0.0001)"),
            0);
  EXPECT_EQ(Count("BillByBillDetails1 b JOIN BillByBill1 o ON o.BillByBill_id = b.BillByBill_id "
                  "JOIN Desr1 d ON d.Related_id = o.CrVoucher_id "
                  "WHERE RefType = 'new' AND AmountDr + AmountCr <> TotalAmount"),
            0);
}

}  // namespace
}  // namespace pstolvane1::books
