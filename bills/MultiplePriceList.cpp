#include "bills/MultiplePriceList.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr MultiplePriceList(ReportFrame& frame, std::int32_t lngCategory_Id,
                               std::int32_t lngClass_Id, Boolean blnReport,
                               std::string_view itemstate, std::string_view cosiderforsih) {
  return Launch(frame, rtMultiplePriceList, blnReport,
                {{Source::rsReport, ComposeMultiplePriceList(lngCategory_Id, lngClass_Id, itemstate,
                                                             cosiderforsih)}});
}

}  // namespace pstolvane1
