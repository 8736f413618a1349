#include "analysis/Doc_Initial.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr Doc_Initial(ReportFrame& frame, std::uint8_t bytYearno, std::int32_t lngVouchertype_id,
                         Date dtFromDate, Date dtToDate, Boolean blnReport, float gScale,
                         Boolean blnNoRel, std::string_view strBillFilter) {
  modStolvane1& module = frame.module;
  frame.lngReportType = rtDoc_Initial;
  module.bytYearno = bytYearno;
  module.SetPeriod(dtFromDate, dtToDate);
  module.sngScale = gScale;
  module.strSQL = frame.Normalise(ComposeDoc_Initial({.lngVouchertype_id = lngVouchertype_id,
                                                      .from = module.strFromDateText,
                                                      .to = module.strToDateText,
                                                      .gScale = gScale,
                                                      .blnNoRel = blnNoRel.IsSet(),
                                                      .strBillFilter = strBillFilter}));
  return Launch(frame, blnReport, kFetch, {{Source::rsReport, module.strSQL}}, &mDoc_Initial);
}

}  // namespace pstolvane1
