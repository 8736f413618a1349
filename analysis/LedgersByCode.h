// The ledgers of given groups.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "session/ReportFrame.h"

namespace pstolvane1 {

// " SUBGROUPNAME1.CODE IN (2,41) AND " of "2,41"; "" of "".
[[nodiscard]] std::string CodeCondition(std::string_view codes);

// ID and NAME of the ledgers of that year and earlier ones, by name. code_condition as above.
[[nodiscard]] std::string ComposeLedgersByCode(std::uint8_t bytYearno,
                                               std::string_view code_condition);

// rsReport itself: this list has no layout of its own.
[[nodiscard]] RecordsetPtr mLedgersByCode(ReportFrame& frame);

// Writes the condition back into sCode.
RecordsetPtr LedgersByCode(ReportFrame& frame, std::uint8_t bytYearno, std::string& sCode,
                           Boolean blnReport);

}  // namespace pstolvane1
