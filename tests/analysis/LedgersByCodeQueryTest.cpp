#include <gtest/gtest.h>

#include "analysis/LedgersByCode.h"

namespace pstolvane1 {
namespace {

std::string OfYear(int year, const std::string& codes) {
  return "SELECT  LEDGERNAMES1.LEDGER_ID AS ID , LEDGERNAMES1.LEDGERNAME AS NAME "
         "FROM  LEDGERNAMES1 "
         "INNER JOIN SUBGROUPNAME1 ON SUBGROUPNAME1.SUBGROUP_ID = LEDGERNAMES1.SUBGROUP_ID "
         "WHERE  " +
         codes + "LEDGERNAMES1.SUBGROUP_ID NOT IN (33,34) AND LEDGERNAMES1.YEAROFCREATION <= " +
         std::to_string(year) + " ORDER BY LEDGERNAMES1.LEDGERNAME ";
}

TEST(ComposeLedgersByCode, WithoutCodesAllGroupsBut33And34) {
  EXPECT_EQ(ComposeLedgersByCode(3, CodeCondition("")), OfYear(3, ""));
}

TEST(ComposeLedgersByCode, TheCodesAreTheFirstCondition) {
  EXPECT_EQ(ComposeLedgersByCode(255, CodeCondition("2,41")),
            OfYear(255, " SUBGROUPNAME1.CODE IN (2,41) AND "));
}

TEST(CodeCondition, ARepeatedCallNestsIt) {
  EXPECT_EQ(CodeCondition(CodeCondition("2")),
            " SUBGROUPNAME1.CODE IN ( SUBGROUPNAME1.CODE IN (2) AND ) AND ");
}

}  // namespace
}  // namespace pstolvane1
