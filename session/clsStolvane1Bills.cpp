// The bill and price reports of the public class.
#include "bills/MultiplePriceList.h"
#include "session/clsStolvane1.h"

namespace pstolvane1 {

using FramePtr = std::shared_ptr<ReportFrame>;

RecordsetPtr clsStolvane1::MultiplePriceList(std::uint8_t /*bytYearno*/, Date /*dtFromDate*/,
                                             Date /*dtToDate*/, std::int32_t /*lngPriceList_Id*/,
                                             std::int32_t lngCategory_Id, std::int32_t lngClass_Id,
                                             Boolean blnReport, std::string_view itemstate,
                                             std::string_view cosiderforsih) {
  return pstolvane1::MultiplePriceList(*FramePtr(frame_), lngCategory_Id, lngClass_Id, blnReport,
                                       itemstate, cosiderforsih);
}

}  // namespace pstolvane1
