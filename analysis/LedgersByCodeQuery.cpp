#include <fmt/format.h>

#include "analysis/LedgersByCode.h"

namespace pstolvane1 {

std::string CodeCondition(std::string_view codes) {
  return codes.empty() ? std::string() : fmt::format(" SUBGROUPNAME1.CODE IN ({}) AND ", codes);
}

std::string ComposeLedgersByCode(std::uint8_t bytYearno, std::string_view code_condition) {
  return fmt::format(
      "SELECT  LEDGERNAMES1.LEDGER_ID AS ID , LEDGERNAMES1.LEDGERNAME AS NAME FROM  LEDGERNAMES1 "
      "INNER JOIN SUBGROUPNAME1 ON SUBGROUPNAME1.SUBGROUP_ID = LEDGERNAMES1.SUBGROUP_ID "
      "WHERE  {}LEDGERNAMES1.SUBGROUP_ID NOT IN (33,34) AND LEDGERNAMES1.YEAROFCREATION <= {} "
      "ORDER BY LEDGERNAMES1.LEDGERNAME ",
      code_condition, bytYearno);
}

}  // namespace pstolvane1
