#include "analysis/LedgersByCode.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr mLedgersByCode(ReportFrame& frame) { return frame.Rowset(Source::rsReport); }

RecordsetPtr LedgersByCode(ReportFrame& frame, std::uint8_t bytYearno, std::string& sCode,
                           Boolean blnReport) {
  frame.module.bytYearno = bytYearno;
  sCode = CodeCondition(sCode);
  return Launch(frame, rtLedgersByCode, blnReport,
                {{Source::rsReport, ComposeLedgersByCode(bytYearno, sCode)}});
}

}  // namespace pstolvane1
