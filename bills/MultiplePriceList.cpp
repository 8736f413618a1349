#include "bills/MultiplePriceList.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr MultiplePriceList(ReportFrame& frame, std::int32_t lngCategory_Id,
                               std::int32_t lngClass_Id, Boolean blnReport,
                               std::string_view itemstate, std::string_view cosiderforsih) {
  frame.lngReportType = rtMultiplePriceList;
  frame.module.strSQL = frame.Normalise(
      ComposeMultiplePriceList(lngCategory_Id, lngClass_Id, itemstate, cosiderforsih));
  return Launch(frame, blnReport, kFetchAsBuilt, {{Source::rsReport, frame.module.strSQL}},
                &mMultiplePriceList);
}

}  // namespace pstolvane1
