// The lists and analyses of the public class. Each call keeps its frame to its end: a handler may
// destroy the session inside it.
#include "analysis/Doc_Initial.h"
#include "analysis/LedgersByCode.h"
#include "session/clsStolvane1.h"

namespace pstolvane1 {

using FramePtr = std::shared_ptr<ReportFrame>;

RecordsetPtr clsStolvane1::Doc_Initial(std::uint8_t bytYearno, std::int32_t lngVouchertype_id,
                                       Date dtFromDate, Date dtToDate, Boolean blnReport,
                                       float gScale, Boolean blnNoRel,
                                       std::int32_t /*vhtypeId_NotInc*/,
                                       std::string_view strBillFilter) {
  return pstolvane1::Doc_Initial(*FramePtr(frame_),
                                 {.bytYearno = bytYearno,
                                  .lngVouchertype_id = lngVouchertype_id,
                                  .dtFromDate = dtFromDate,
                                  .dtToDate = dtToDate,
                                  .gScale = gScale,
                                  .blnNoRel = blnNoRel.IsSet(),
                                  .strBillFilter = std::string(strBillFilter)},
                                 blnReport);
}

RecordsetPtr clsStolvane1::LedgersByCode(std::uint8_t bytYearno, std::string& sCode,
                                         Boolean blnReport) {
  return pstolvane1::LedgersByCode(*FramePtr(frame_), bytYearno, sCode, blnReport);
}

}  // namespace pstolvane1
