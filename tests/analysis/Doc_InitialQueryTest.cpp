#include <gtest/gtest.h>

#include "analysis/Doc_Initial.h"

namespace pstolvane1 {
namespace {

std::string Compose(std::int32_t id, bool no_rel = false, std::string_view bill_filter = "",
                    float scale = 1) {
  return ComposeDoc_Initial({.lngVouchertype_id = id,
                             .from = "04/01/2003",
                             .to = "03/31/2004",
                             .gScale = scale,
                             .blnNoRel = no_rel,
                             .strBillFilter = bill_filter});
}

TEST(ComposeDoc_Initial, DocumentsByTheKindOfTheirVoucherType) {
  EXPECT_EQ(Compose(10),
            "SELECT SUM(DESR1.TOTALAMOUNT)/1  as AMOUNT , LEDGERNAMES1.LEDGER_ID , "
            "LEDGERNAMES1.LEDGERNAME AS LEDGERNAME FROM (DESR1 INNER JOIN VOUCHERTYPE1 ON "
            "VOUCHERTYPE1.VOUCHERTYPE_ID = DESR1.VOUCHERTYPE_ID) INNER JOIN LEDGERNAMES1 ON "
            "LEDGERNAMES1.LEDGER_ID = DESR1.LEDGER_ID WHERE  Vouchertype1.subrelatedto =10 AND "
            "DESR1.DELETED = 0 And Desr1.Optional =0 AND  DESR1.DATE BETWEEN #04/01/2003# and "
            "#03/31/2004# GROUP BY LEDGERNAMES1.LEDGER_ID , LEDGERNAMES1.LEDGERNAME ORDER BY "
            "LEDGERNAMES1.LEDGERNAME ");
}

TEST(ComposeDoc_Initial, WithNoRelTheIdIsTheVoucherTypesKey) {
  EXPECT_NE(Compose(10, true).find("WHERE  Vouchertype1.vouchertype_id =10 AND "),
            std::string::npos);
}

TEST(ComposeDoc_Initial, TheBillFilterStandsBehindTheTypeClause) {
  EXPECT_NE(Compose(10, false, "Desr1.TotalAmount > 5")
                .find(" Vouchertype1.subrelatedto =10 and Desr1.TotalAmount > 5 AND "),
            std::string::npos);
}

TEST(ComposeDoc_Initial, TheScaleDividesInTheQuery) {
  EXPECT_TRUE(Compose(10, false, "", 1000).starts_with("SELECT SUM(DESR1.TOTALAMOUNT)/1000  as"));
  EXPECT_TRUE(Compose(9, false, "", 1000).starts_with("SELECT SUM(CREDITAMT)/1000  as"));
  EXPECT_TRUE(Compose(5, false, "", 1000).starts_with("SELECT SUM(CREDITAMT+DEBITAMT)/1000  as"));
}

TEST(ComposeDoc_Initial, Kind43FiltersByJobCardDateWithOrWithoutNoRel) {
  const std::string text = Compose(43);
  EXPECT_NE(text.find("(desr1.vouchertype_Id = 43 or ( Desr1.Vouchertype_id = 39 and "
                      "Desr1.IsJobCard = 1 ))"),
            std::string::npos);
  EXPECT_NE(text.find(" DESR1.JobcardDATE BETWEEN #04/01/2003# and #03/31/2004# "),
            std::string::npos);
  EXPECT_EQ(text, Compose(43, true));
}

TEST(ComposeDoc_Initial, Kind5IgnoresNoRelAndTheBillFilter) {
  const std::string text = Compose(5);
  EXPECT_EQ(text, Compose(5, true, "nonsense"));
  EXPECT_NE(text.find("WHERE  (Vouchertype1.relatedto = 6 OR Vouchertype1.RelatedTo = 7 ) and "
                      "[VHRDETAILDATE] BETWEEN #04/01/2003# AND #03/31/2004# AND  "
                      "(VOUCHERDETAILS1.CLEARANCEDATE IS NULL) AND  VOUCHERDETAILS1.DELETED = 0 "
                      "AND VOUCHERDETAILS1.VHRDETAILOPTIONAL = 0  AND "
                      "VOUCHERDETAILS1.CLEARANCEDATE IS NULL  AND SUBGROUPNAME1.CODE IN (2,41) "
                      "GROUP BY"),
            std::string::npos);
}

TEST(ComposeDoc_Initial, Kind9SumsTheCreditsOfItsVoucherType) {
  EXPECT_NE(Compose(9).find(" Where  Vouchertype1.subrelatedto =9 and  [VHRDETAILDATE] BETWEEN "
                            "#04/01/2003# AND #03/31/2004# AND   VoucherDetails1.Creditamt > 0 and "
                            "VOUCHERDETAILS1.DELETED = 0 AND VOUCHERDETAILS1.VHRDETAILOPTIONAL = 0 "
                            " GROUP BY"),
            std::string::npos);
}

}  // namespace
}  // namespace pstolvane1
