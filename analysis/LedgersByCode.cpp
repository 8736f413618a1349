#include "analysis/LedgersByCode.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr mLedgersByCode(ReportFrame& frame) {
  return frame.Rowset(Source::rsReport)->Clone(adLockUnspecified);
}

RecordsetPtr LedgersByCode(ReportFrame& frame, std::uint8_t bytYearno, std::string& sCode,
                           Boolean blnReport) {
  frame.lngReportType = rtLedgersByCode;
  frame.module.bytYearno = bytYearno;
  sCode = CodeCondition(sCode);
  frame.module.strSQL = frame.Normalise(ComposeLedgersByCode(bytYearno, sCode));
  return Launch(frame, blnReport, kFetch, {{Source::rsReport, frame.module.strSQL}},
                &mLedgersByCode);
}

}  // namespace pstolvane1
