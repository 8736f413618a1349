// Every family of reports finds rows in the smallest sample books, whatever the seed.
#include <gtest/gtest.h>

#include "session/books/SampleBooks.h"
#include "tests/books/BooksOnDisk.h"

namespace pstolvane1::books {
namespace {

using test::Database;
using test::Folder;

struct Finding {
  const char* what;
  const char* from;
  int least;
};

constexpr Finding kFindings[] = {
    {"opening stock taken over in a later year", "GodownItem1 WHERE IsOpeningBal AND YearNo > 1",
     2},
    {"negative opening stock", "GodownItem1 WHERE IsOpeningBal AND NOT IsAdded", 1},
    {"opening stock without a rate", "GodownItem1 WHERE IsOpeningBal AND Rate = 0", 1},
    {"negative stock",
     "(SELECT 1 FROM GodownItem1 WHERE Optional = 0 GROUP BY Item_id, Godown_id, Batch_id "
     "HAVING sum(CASE WHEN IsAdded THEN Qty ELSE -Qty END) < 0)",
     1},
    {"standard costs and prices", "(SELECT DISTINCT SaleOrPurchase, YearNo FROM StandardRate1)", 6},
    {"items without a standard rate",
     "Items1 WHERE ConsiderForSih AND Item_id NOT IN (SELECT Item_id FROM StandardRate1)", 5},
    {"free goods bought",
     "DesrDetails1 WHERE Optional = 0 AND IsAltUnit = 0 AND QtyDespIn > BilledQty", 3},
    {"free goods sold",
     "DesrDetails1 WHERE Optional = 0 AND IsAltUnit = 0 AND QtyDespOut > BilledQty", 3},
    {"free goods in the alternate unit",
     "DesrDetails1 WHERE Optional = 0 AND IsAltUnit = 1 AND AltQty > BilledQty", 1},
    {"each form of unit and rate", "(SELECT DISTINCT IsAltUnit, IsAltRate FROM DesrDetails1)", 4},
    {"returns that are only credited", "DesrDetails1 WHERE QtyReturned > 0", 3},
    {"optional documents", "Desr1 WHERE Optional = 1 AND Deleted = 0", 2},
    {"deleted documents", "Desr1 WHERE Deleted = 1", 2},
    {"sub dealers and other debtors",
     "(SELECT DISTINCT Subgroup_id FROM Desr1 JOIN LedgerNames1 USING (Ledger_id) "
     "WHERE Subgroup_id IN (4, 5))",
     2},
    {"areas", "(SELECT DISTINCT Pin FROM Desr1 JOIN LedgerNames1 USING (Ledger_id))", 10},
    {"related items sold",
     "ItemRelationShip r JOIN DesrDetails1 l ON l.Item_id = r.Item_id AND QtyDespOut > 0", 3},
    {"sales that earn a commission",
     "DesrDetails1 l JOIN Desr1 d USING (Desr_id) JOIN EmployeeCommision c ON c.Item_id = "
     "l.Item_id "
     "AND c.Employee_id = d.Employee_id AND DateFrom <= Date AND QtyTo <= QtyDespOut",
     20},
    {"colours of vehicles sold",
     "(SELECT DISTINCT Color_id FROM GodownItem1 WHERE GOriginalVouchertype_id = 10)", 5},
    {"colours of goods kept by lot", "Batches1 WHERE Color_id IS NOT NULL AND EngineNo = ''", 3},
    {"sub-categories two levels down",
     "ItemCategory1 a JOIN ItemCategory1 b ON b.ItemCategory_id = a.RelatedTo "
     "JOIN ItemCategory1 c ON c.ItemCategory_id = b.RelatedTo WHERE a.RelatedTo <> "
     "a.ItemCategory_id AND b.RelatedTo <> b.ItemCategory_id",
     3},
    {"free services",
     "(SELECT DISTINCT ServiceType_id FROM Terms1 WHERE ServiceType_id IN "
     "(3, 5, 7, 9, 11, 13))",
     6},
    {"service bills with and without a job card",
     "(SELECT DISTINCT IsJobCard FROM Desr1 WHERE Vouchertype_id = 39)", 2},
    {"job cards not billed", "Desr1 WHERE Vouchertype_id = 43", 5},
    {"vehicles served more than once",
     "(SELECT 1 FROM Terms1 WHERE ServiceType_id IS NOT NULL GROUP BY RegistrationNumber "
     "HAVING count(*) > 1)",
     5},
    {"complaints", "Terms1 WHERE ServiceType_id IS NOT NULL AND List1 <> ''", 20},
    {"labour lines", "DesrDetails1 JOIN Items1 USING (Item_id) WHERE ConsiderForSih = 0", 50},
    {"taxed labour of both rates",
     "(SELECT DISTINCT Salestax FROM DesrDetails1 JOIN Items1 USING (Item_id) "
     "WHERE ConsiderForSih = 0)",
     2},
    {"mechanics at work", "(SELECT DISTINCT Mechanic_id FROM Terms1 WHERE Mechanic_id > 0)", 5},
    {"warranty claims with all codes",
     "DesrDetails1 l JOIN Defect ON Defect_id = DefectCode JOIN Vendor ON Vendor_id = VendorCode "
     "JOIN Perfomance ON Perfomance_id = PerformanceCode WHERE IsWarranty = 1 AND ClaimNo <> ''",
     8},
    {"financiers of vehicles", "(SELECT DISTINCT Hypo_id FROM Terms1 WHERE Hypo_id > 0)", 5},
    {"vehicles sold without a financier",
     "Terms1 WHERE Hypo_id = 0 AND Vehicle_id > 0 AND ServiceType_id IS NULL", 3},
    {"a financier without a pin code", "Hypo WHERE Pincode IS NULL", 1},
    {"financiers that share a pin code",
     "(SELECT 1 FROM Hypo GROUP BY Pincode HAVING count(*) > 1)", 1},
    {"sales whose form is filed", "Desr1 WHERE Audited = 1", 5},
    {"sales whose form is not filed", "Desr1 WHERE Audited = 0 AND Vouchertype_id = 10", 5},
    {"buyers that are not the ledger",
     "Terms1 t JOIN Desr1 d USING (Desr_id) JOIN LedgerNames1 USING (Ledger_id) "
     "WHERE Vouchertype_id = 10 AND DespatchTo <> LedgerName",
     2},
    {"vehicles still on hand", "Batches1 WHERE EngineNo <> '' AND QtyOnHand = 1", 3},
    {"receipts against bills", "BillByBillDetails1 WHERE Vouchertype_id = 9 AND RefType = 'agst'",
     20},
    {"entries on account and paid at once",
     "(SELECT DISTINCT RefType FROM BillByBillDetails1 WHERE RefType IN ('acc', 'cur'))", 2},
    {"vehicle bills that are partly or not paid",
     "(SELECT 1 FROM Desr1 d JOIN BillByBill1 b ON b.CrVoucher_id = d.Related_id "
     "JOIN BillByBillDetails1 USING (BillByBill_id) WHERE d.Vouchertype_id = 10 "
     "GROUP BY d.Desr_id HAVING sum(AmountDr - AmountCr) > 0)",
     2},
    {"cheques not cleared",
     "VoucherDetails1 v JOIN SubgroupName1 USING (Subgroup_id) JOIN Voucher1 USING (Voucher_id) "
     "JOIN Vouchertype1 USING (Vouchertype_id) WHERE Code IN (2, 41) AND ClearanceDate IS NULL "
     "AND RelatedTo IN (6, 7)",
     1},
    {"price lists of sale and purchase", "(SELECT DISTINCT SaleOrPurchase FROM PriceListDiscount1)",
     2},
    {"items of both states", "(SELECT DISTINCT ItemState FROM Items1)", 2},
    {"ledgers of the two subgroups that are never listed",
     "LedgerNames1 WHERE Subgroup_id IN (33, 34)", 2},
};

class SampleFamilies : public testing::TestWithParam<std::uint64_t> {
 protected:
  void SetUp() override {
    SampleBooks(folder_.File("a.db"), kFewestMovements, GetParam());
    books_ = std::make_unique<Database>(folder_.File("a.db"));
  }
  Folder folder_;
  std::unique_ptr<Database> books_;
};
INSTANTIATE_TEST_SUITE_P(Seeds, SampleFamilies, testing::Values(1, 2, 3));

TEST_P(SampleFamilies, FindWhatTheyReport) {
  for (const Finding& one : kFindings) {
    EXPECT_GE(books_->Whole(std::string("SELECT count(*) FROM ") + one.from), one.least)
        << one.what;
  }
}

TEST_P(SampleFamilies, FindDocumentsOfEveryKindInEveryYear) {
  const auto kinds =
      books_->Rows("SELECT Vouchertype_id FROM Vouchertype1 WHERE RelatedTo NOT IN (1, 2, 6, 9)");
  EXPECT_EQ(kinds.size(), 22U);
  for (const auto& kind : kinds) {
    EXPECT_EQ(
        books_->Whole("SELECT count(DISTINCT YearNo) FROM Desr1 WHERE Vouchertype_id = " + kind), 3)
        << kind;
  }
  for (const char* kind : {"6", "9"}) {
    EXPECT_GT(
        books_->Whole(std::string("SELECT count(*) FROM Voucher1 WHERE Vouchertype_id = ") + kind),
        5)
        << kind;
  }
}

// Of each kind of pending document some are executed in full, some in part and some not at all.
TEST_P(SampleFamilies, FindPendingChains) {
  const auto open = [&](const std::string& kinds, const std::string& test) {
    return books_->Whole(
        "SELECT count(*) FROM (SELECT g.GodownItem_id, g.Qty, (SELECT coalesce(sum(e.Qty), 0) "
        "FROM GodownItem1 e WHERE e.GRelatedDesr_id = g.GDesr_id AND e.GRelatedYearNo = g.YearNo "
        "AND e.Item_id = g.Item_id AND e.Godown_id = g.Godown_id AND e.Batch_id = g.Batch_id) AS "
        "done FROM GodownItem1 g WHERE g.GOriginalVouchertype_id IN (" +
        kinds + ")) WHERE " + test);
  };
  for (const std::string kinds : {"12", "13", "14, 15", "16, 17", "19, 20", "23, 24"}) {
    EXPECT_GT(open(kinds, "done = 0"), 0) << kinds;
    EXPECT_GT(open(kinds, "done = Qty"), 0) << kinds;
  }
  EXPECT_GT(open("12, 13, 14, 15", "done > 0 AND done < Qty"), 3);
  // A chain may end in the year after the one in which it began.
  EXPECT_GT(books_->Whole("SELECT count(*) FROM GodownItem1 WHERE GRelatedYearNo IS NOT NULL"), 50);
}

}  // namespace
}  // namespace pstolvane1::books
