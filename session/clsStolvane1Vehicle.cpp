// The vehicle and workshop reports of the public class.
#include "session/clsStolvane1.h"
#include "vehicle/BuyerReport.h"
#include "vehicle/RtoSalesDetails.h"
#include "vehicle/ServiceTax.h"
#include "vehicle/VehicleSearch.h"

namespace pstolvane1 {

using FramePtr = std::shared_ptr<ReportFrame>;

namespace {

VehicleSearchArguments Asked(ReportType reptype, std::uint8_t bytYearno, Date dtFromDate,
                             Date dtToDate, std::string_view strCriteria, float sngScale,
                             std::string_view strBuyerFilter, std::int32_t billbybill_id,
                             std::string_view strBillFilter, std::string_view strVouchertype,
                             std::int32_t lngSubRelatedTo) {
  return {.reptype = reptype,
          .bytYearno = bytYearno,
          .dtFromDate = dtFromDate,
          .dtToDate = dtToDate,
          .sngScale = sngScale,
          .strCriteria = std::string(strCriteria),
          .strBuyerFilter = std::string(strBuyerFilter),
          .strBillFilter = std::string(strBillFilter),
          .strVouchertype = std::string(strVouchertype),
          .billbybill_id = billbybill_id,
          .lngSubRelatedTo = lngSubRelatedTo};
}

Variant InVariant(RecordsetPtr report) { return report ? Variant(std::move(report)) : Variant(); }

}  // namespace

RecordsetPtr clsStolvane1::AutoSearch(ReportType reptype, std::uint8_t bytYearno, Date dtFromDate,
                                      Date dtToDate, std::string_view strCriteria,
                                      Boolean /*blnReport*/, float sngScale,
                                      std::string_view strBuyerFilter, std::int32_t billbybill_id,
                                      std::string_view strBillFilter,
                                      std::string_view strVouchertype,
                                      std::int32_t lngSubRelatedTo) {
  return pstolvane1::AutoSearch(
      *FramePtr(frame_),
      Asked(reptype, bytYearno, dtFromDate, dtToDate, strCriteria, sngScale, strBuyerFilter,
            billbybill_id, strBillFilter, strVouchertype, lngSubRelatedTo));
}

RecordsetPtr clsStolvane1::RTOInsSearch(ReportType reptype, std::uint8_t bytYearno, Date dtFromDate,
                                        Date dtToDate, std::string_view strCriteria,
                                        Boolean /*blnReport*/, float sngScale,
                                        std::string_view strBuyerFilter, std::int32_t billbybill_id,
                                        std::string_view strBillFilter,
                                        std::string_view strVouchertype,
                                        std::int32_t lngSubRelatedTo) {
  return pstolvane1::RTOInsSearch(
      *FramePtr(frame_),
      Asked(reptype, bytYearno, dtFromDate, dtToDate, strCriteria, sngScale, strBuyerFilter,
            billbybill_id, strBillFilter, strVouchertype, lngSubRelatedTo));
}

RecordsetPtr clsStolvane1::AutoSearchServices(ReportType reptype, std::uint8_t bytYearno,
                                              Date dtFromDate, Date dtToDate,
                                              std::string_view strCriteria, Boolean /*blnReport*/,
                                              float sngScale, std::string_view strBillFilter,
                                              std::int32_t billbybill_id,
                                              std::string_view strVouchertypeFilter,
                                              std::int32_t lngSubRelatedTo) {
  return pstolvane1::AutoSearchServices(
      *FramePtr(frame_),
      Asked(reptype, bytYearno, dtFromDate, dtToDate, strCriteria, sngScale, {}, billbybill_id,
            strBillFilter, strVouchertypeFilter, lngSubRelatedTo));
}

RecordsetPtr clsStolvane1::BuyerReport(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                       Boolean blnReport, Boolean blnDetailed, float sngScale,
                                       std::uint8_t /*btTypeOfBuyerReport*/, RecordsetPtr rsItms,
                                       std::string_view sVouchertype_id) {
  return pstolvane1::BuyerReport(*FramePtr(frame_),
                                 {.bytYearno = bytYearno,
                                  .dtFromDate = dtFromDate,
                                  .dtToDate = dtToDate,
                                  .blnDetailed = blnDetailed.IsSet(),
                                  .sngScale = sngScale,
                                  .sVouchertype_id = std::string(sVouchertype_id)},
                                 rsItms, blnReport);
}

Variant clsStolvane1::RtoSalesDetails(std::uint8_t /*bytYearno*/, Date dtFromDate, Date dtToDate,
                                      Boolean /*blnUseLongDate*/,
                                      std::string_view /*strRefSeperator*/,
                                      std::uint8_t /*bytOptional*/, Boolean blnReport,
                                      Boolean /*blnDetailed*/, float /*sngScale*/,
                                      RecordsetPtr recitem, std::int32_t Desr_Id) {
  return InVariant(pstolvane1::RtoSalesDetails(
      *FramePtr(frame_), {.dtFromDate = dtFromDate, .dtToDate = dtToDate, .Desr_Id = Desr_Id},
      recitem, blnReport));
}

Variant clsStolvane1::RtoSalesDetails1(std::uint8_t /*bytYearno*/, Date dtFromDate, Date dtToDate,
                                       Boolean /*blnUseLongDate*/,
                                       std::string_view /*strRefSeperator*/,
                                       std::uint8_t /*bytOptional*/, Boolean blnReport,
                                       Boolean /*blnDetailed*/, float /*sngScale*/,
                                       RecordsetPtr recitem) {
  return InVariant(pstolvane1::RtoSalesDetails1(
      *FramePtr(frame_), {.dtFromDate = dtFromDate, .dtToDate = dtToDate}, recitem, blnReport));
}

Variant clsStolvane1::ServiceTax(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                 std::int32_t /*lngItem_id*/, std::int32_t /*lngLedger_Id*/,
                                 Boolean blnUseLongDate, std::string_view strRefSeperator,
                                 std::uint8_t /*bytOptional*/, Boolean blnReport,
                                 Boolean blnDetailed, Boolean /*blnShowNarration*/, float sngScale,
                                 RecordsetPtr recitem, RecordsetPtr recLedger) {
  return InVariant(pstolvane1::ServiceTax(*FramePtr(frame_),
                                          {.bytYearno = bytYearno,
                                           .dtFromDate = dtFromDate,
                                           .dtToDate = dtToDate,
                                           .blnUseLongDate = blnUseLongDate.IsSet(),
                                           .strRefSeperator = std::string(strRefSeperator),
                                           .blnDetailed = blnDetailed.IsSet(),
                                           .sngScale = sngScale,
                                           .recitem = std::move(recitem),
                                           .recLedger = std::move(recLedger)},
                                          blnReport));
}

}  // namespace pstolvane1
