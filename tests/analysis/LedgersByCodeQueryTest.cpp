#include <gtest/gtest.h>

#include "analysis/LedgersByCode.h"

namespace pstolvane1 {
namespace {

TEST(ComposeLedgersByCode, WithoutCodesAllGroupsBut33And34) {
  EXPECT_EQ(ComposeLedgersByCode(3, CodeCondition("")),
            "SELECT  LEDGERNAMES1.LEDGER_ID AS ID , LEDGERNAMES1.LEDGERNAME AS NAME FROM  "
            "LEDGERNAMES1 INNER JOIN SUBGROUPNAME1 ON SUBGROUPNAME1.SUBGROUP_ID = "
            "LEDGERNAMES1.SUBGROUP_ID WHERE  LEDGERNAMES1.SUBGROUP_ID NOT IN (33,34) AND "
            "LEDGERNAMES1.YEAROFCREATION <= 3 ORDER BY LEDGERNAMES1.LEDGERNAME ");
}

TEST(ComposeLedgersByCode, TheCodesAreTheFirstCondition) {
  EXPECT_NE(ComposeLedgersByCode(255, CodeCondition("2,41"))
                .find("WHERE   SUBGROUPNAME1.CODE IN (2,41) AND LEDGERNAMES1.SUBGROUP_ID NOT IN "
                      "(33,34) AND LEDGERNAMES1.YEAROFCREATION <= 255 "),
            std::string::npos);
}

TEST(CodeCondition, ARepeatedCallNestsIt) {
  EXPECT_EQ(CodeCondition(CodeCondition("2")),
            " SUBGROUPNAME1.CODE IN ( SUBGROUPNAME1.CODE IN (2) AND ) AND ");
}

}  // namespace
}  // namespace pstolvane1
