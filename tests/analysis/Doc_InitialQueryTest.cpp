#include <gtest/gtest.h>

#include "analysis/Doc_Initial.h"

namespace pstolvane1 {
namespace {

std::string Compose(std::int32_t id, bool no_rel = false, std::string_view bill_filter = "",
                    float scale = 1) {
  return ComposeDoc_Initial({.lngVouchertype_id = id,
                             .dtFromDate = Date::FromYmd(2003, 4, 1),
                             .dtToDate = Date::FromYmd(2004, 3, 31),
                             .gScale = scale,
                             .blnNoRel = no_rel,
                             .strBillFilter = std::string(bill_filter)});
}

const std::string kGrouped =
    "GROUP BY LEDGERNAMES1.LEDGER_ID , LEDGERNAMES1.LEDGERNAME ORDER BY LEDGERNAMES1.LEDGERNAME ";

std::string OfDocuments(const std::string& type_clause, const std::string& date) {
  return "SELECT SUM(DESR1.TOTALAMOUNT)/1  as AMOUNT , "
         "LEDGERNAMES1.LEDGER_ID , LEDGERNAMES1.LEDGERNAME AS LEDGERNAME "
         "FROM (DESR1 INNER JOIN VOUCHERTYPE1 ON "
         "VOUCHERTYPE1.VOUCHERTYPE_ID = DESR1.VOUCHERTYPE_ID) "
         "INNER JOIN LEDGERNAMES1 ON LEDGERNAMES1.LEDGER_ID = DESR1.LEDGER_ID "
         "WHERE " +
         type_clause + " AND DESR1.DELETED = 0 And Desr1.Optional =0 AND  DESR1." + date +
         " BETWEEN #04/01/2003# and #03/31/2004# " + kGrouped;
}

std::string OfReceipts(const std::string& type_clause) {
  return "SELECT SUM(CREDITAMT)/1  as AMOUNT ,  "
         "LEDGERNAMES1.LEDGER_ID , LEDGERNAMES1.LEDGERNAME AS LEDGERNAME "
         "FROM VOUCHERDETAILS1 "
         "INNER JOIN LEDGERNAMES1 ON LEDGERNAMES1.LEDGER_ID = VOUCHERDETAILS1.LEDGER_ID "
         "INNER JOIN VOUCHER1 ON VOUCHER1.VOUCHER_ID = VOUCHERDETAILS1.VOUCHER_ID "
         "INNER JOIN VOUCHERTYPE1 ON VOUCHERTYPE1.VOUCHERTYPE_ID = VOUCHER1.VOUCHERTYPE_ID "
         " Where " +
         type_clause +
         " and  [VHRDETAILDATE] BETWEEN #04/01/2003# AND #03/31/2004# AND  "
         " VoucherDetails1.Creditamt > 0 and VOUCHERDETAILS1.DELETED = 0 AND "
         "VOUCHERDETAILS1.VHRDETAILOPTIONAL = 0  " +
         kGrouped;
}

TEST(ComposeDoc_Initial, DocumentsByTheKindOfTheirVoucherType) {
  EXPECT_EQ(Compose(10), OfDocuments(" Vouchertype1.subrelatedto =10", "DATE"));
}

TEST(ComposeDoc_Initial, WithNoRelTheIdIsTheVoucherTypesKey) {
  EXPECT_EQ(Compose(10, true), OfDocuments(" Vouchertype1.vouchertype_id =10", "DATE"));
  EXPECT_EQ(Compose(9, true), OfReceipts(" Vouchertype1.vouchertype_id =9"));
}

TEST(ComposeDoc_Initial, TheBillFilterStandsBehindTheTypeClause) {
  EXPECT_EQ(Compose(10, false, "Desr1.TotalAmount > 5"),
            OfDocuments(" Vouchertype1.subrelatedto =10 and Desr1.TotalAmount > 5", "DATE"));
  EXPECT_EQ(Compose(9, false, "VoucherDetails1.Creditamt > 5"),
            OfReceipts(" Vouchertype1.subrelatedto =9 and VoucherDetails1.Creditamt > 5"));
}

TEST(ComposeDoc_Initial, TheScaleDividesInTheQuery) {
  EXPECT_TRUE(Compose(10, false, "", 1000).starts_with("SELECT SUM(DESR1.TOTALAMOUNT)/1000  as"));
  EXPECT_TRUE(Compose(9, false, "", 1000).starts_with("SELECT SUM(CREDITAMT)/1000  as"));
  EXPECT_TRUE(Compose(5, false, "", 0.5F).starts_with("SELECT SUM(CREDITAMT+DEBITAMT)/0.5  as"));
}

TEST(ComposeDoc_Initial, Kind43FiltersByJobCardDateWithOrWithoutNoRel) {
  const std::string job_cards =
      "   (desr1.vouchertype_Id = 43 or ( Desr1.Vouchertype_id = 39 and Desr1.IsJobCard = 1 ))";
  EXPECT_EQ(Compose(43), OfDocuments(job_cards, "JobcardDATE"));
  EXPECT_EQ(Compose(43, true), OfDocuments(job_cards, "JobcardDATE"));
  EXPECT_EQ(Compose(43, false, "Desr1.Ledger_id = 7"),
            OfDocuments(job_cards + " and Desr1.Ledger_id = 7", "JobcardDATE"));
}

TEST(ComposeDoc_Initial, Kind5IgnoresNoRelAndTheBillFilter) {
  const std::string uncleared =
      "SELECT SUM(CREDITAMT+DEBITAMT)/1  as AMOUNT ,  "
      "LEDGERNAMES1.LEDGER_ID , LEDGERNAMES1.LEDGERNAME AS LEDGERNAME "
      "FROM VOUCHERDETAILS1 "
      "INNER JOIN LEDGERNAMES1 ON LEDGERNAMES1.LEDGER_ID = VOUCHERDETAILS1.LEDGER_ID "
      "INNER JOIN SUBGROUPNAME1 ON SUBGROUPNAME1.SUBGROUP_ID = LEDGERNAMES1.SUBGROUP_ID "
      "INNER JOIN VOUCHER1 ON VOUCHER1.VOUCHER_ID = VOUCHERDETAILS1.VOUCHER_ID "
      "INNER JOIN VOUCHERTYPE1 ON VOUCHERTYPE1.VOUCHERTYPE_ID = VOUCHER1.VOUCHERTYPE_ID "
      "WHERE  (Vouchertype1.relatedto = 6 OR Vouchertype1.RelatedTo = 7 ) and "
      "[VHRDETAILDATE] BETWEEN #04/01/2003# AND #03/31/2004# AND  "
      "(VOUCHERDETAILS1.CLEARANCEDATE IS NULL) AND  "
      "VOUCHERDETAILS1.DELETED = 0 AND VOUCHERDETAILS1.VHRDETAILOPTIONAL = 0  "
      "AND VOUCHERDETAILS1.CLEARANCEDATE IS NULL  "
      "AND SUBGROUPNAME1.CODE IN (2,41) " +
      kGrouped;
  EXPECT_EQ(Compose(5), uncleared);
  EXPECT_EQ(Compose(5, true, "nonsense"), uncleared);
}

}  // namespace
}  // namespace pstolvane1
