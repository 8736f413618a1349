// The bill and price reports of the public class.
#include "bills/BillWise.h"
#include "bills/MultiplePriceList.h"
#include "session/OnFrame.h"
#include "session/clsStolvane1.h"

namespace pstolvane1 {

namespace {

BillWiseArguments Asked(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                        Boolean blnUseLongDate, Boolean blnDetailed, float sngScale) {
  return {.bytYearno = bytYearno,
          .dtFromDate = dtFromDate,
          .dtToDate = dtToDate,
          .blnUseLongDate = blnUseLongDate.IsSet(),
          .blnDetailed = blnDetailed.IsSet(),
          .sngScale = sngScale};
}

}  // namespace

RecordsetPtr clsStolvane1::BillWiseQuery(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                         std::int32_t /*lngItem_id*/, std::int32_t /*lngLedger_Id*/,
                                         Boolean blnUseLongDate,
                                         std::string_view /*strRefSeperator*/,
                                         std::uint8_t /*bytOptional*/, Boolean blnReport,
                                         Boolean blnDetailed, Boolean /*blnShowNarration*/,
                                         float sngScale, Boolean /*Detailed*/,
                                         Date /*lastVoucherDate*/, const RecordsetPtr& recitem) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::BillWiseQuery(
        frame, Asked(bytYearno, dtFromDate, dtToDate, blnUseLongDate, blnDetailed, sngScale),
        recitem, blnReport);
  });
}

RecordsetPtr clsStolvane1::BillWiseQuery1(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                          std::int32_t /*lngItem_id*/,
                                          std::int32_t /*lngLedger_Id*/, Boolean blnUseLongDate,
                                          std::string_view /*strRefSeperator*/,
                                          std::uint8_t /*bytOptional*/, Boolean blnReport,
                                          Boolean blnDetailed, Boolean /*blnShowNarration*/,
                                          float sngScale, Boolean /*Detailed*/,
                                          Date /*lastVoucherDate*/, const RecordsetPtr& recitem) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::BillWiseQuery1(
        frame, Asked(bytYearno, dtFromDate, dtToDate, blnUseLongDate, blnDetailed, sngScale),
        recitem, blnReport);
  });
}

RecordsetPtr clsStolvane1::MultiplePriceList(std::uint8_t /*bytYearno*/, Date /*dtFromDate*/,
                                             Date /*dtToDate*/, std::int32_t /*lngPriceList_Id*/,
                                             std::int32_t lngCategory_Id, std::int32_t lngClass_Id,
                                             Boolean blnReport, std::string_view itemstate,
                                             std::string_view cosiderforsih) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::MultiplePriceList(frame, lngCategory_Id, lngClass_Id, blnReport, itemstate,
                                         cosiderforsih);
  });
}

}  // namespace pstolvane1
