// The vehicle and workshop reports of the public class.
#include "session/OnFrame.h"
#include "session/clsStolvane1.h"
#include "vehicle/BuyerReport.h"
#include "vehicle/ClaimReport.h"
#include "vehicle/FreeServiceReport.h"
#include "vehicle/FreeServiceReportDaily.h"
#include "vehicle/HypoReport.h"
#include "vehicle/HypoReportDaily.h"
#include "vehicle/MechanicLabourReport.h"
#include "vehicle/MechanicLabourReportDaily.h"
#include "vehicle/RtoSalesDetails.h"
#include "vehicle/ServiceReportRegno.h"
#include "vehicle/ServiceTax.h"
#include "vehicle/VehicleSearch.h"

namespace pstolvane1 {

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

RecordsetPtr clsStolvane1::ServiceReportRegno(std::uint8_t bytYearno, Date dtFromDate,
                                              Date dtToDate, Boolean blnReport, Boolean blnDetailed,
                                              float sngScale, std::string_view strFilter,
                                              const RecordsetPtr& rsItm) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::ServiceReportRegno(frame,
                                          {.bytYearno = bytYearno,
                                           .dtFromDate = dtFromDate,
                                           .dtToDate = dtToDate,
                                           .blnDetailed = blnDetailed.IsSet(),
                                           .sngScale = sngScale,
                                           .strFilter = std::string(strFilter)},
                                          rsItm, blnReport);
  });
}

RecordsetPtr clsStolvane1::FreeServiceReport(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                             Boolean blnReport, Boolean blnDetailed, float sngScale,
                                             std::string_view /*strItemstate*/,
                                             std::string_view /*strConsiderForSih*/,
                                             std::int32_t Cat_id) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::FreeServiceReport(frame,
                                         {.bytYearno = bytYearno,
                                          .dtFromDate = dtFromDate,
                                          .dtToDate = dtToDate,
                                          .blnDetailed = blnDetailed.IsSet(),
                                          .sngScale = sngScale,
                                          .Cat_id = Cat_id},
                                         blnReport);
  });
}

RecordsetPtr clsStolvane1::FreeServiceReportDaily(ReportType reptype, std::uint8_t bytYearno,
                                                  Date dtFromDate, Date dtToDate, Boolean blnReport,
                                                  Boolean blnDetailed, float sngScale,
                                                  std::int32_t Vehicle_id,
                                                  const RecordsetPtr& rsItms,
                                                  std::uint8_t /*OptNo*/) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::FreeServiceReportDaily(frame, reptype,
                                              {.bytYearno = bytYearno,
                                               .dtFromDate = dtFromDate,
                                               .dtToDate = dtToDate,
                                               .blnDetailed = blnDetailed.IsSet(),
                                               .sngScale = sngScale,
                                               .Vehicle_id = Vehicle_id},
                                              rsItms, blnReport);
  });
}

RecordsetPtr clsStolvane1::MechanicLabourReport(
    std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, Boolean blnReport, Boolean blnDetailed,
    float sngScale, std::string_view /*strItemstate*/, std::string_view /*strConsiderForSih*/,
    std::int32_t Mechanic_id, std::uint8_t btTypeOfReport,
    std::string_view /*strVouchertypeFilter*/) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::MechanicLabourReport(frame,
                                            {.bytYearno = bytYearno,
                                             .dtFromDate = dtFromDate,
                                             .dtToDate = dtToDate,
                                             .blnDetailed = blnDetailed.IsSet(),
                                             .sngScale = sngScale,
                                             .Mechanic_id = Mechanic_id,
                                             .btTypeOfReport = btTypeOfReport},
                                            blnReport);
  });
}

RecordsetPtr clsStolvane1::MechanicLabourReportDaily(
    ReportType reptype, std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, Boolean blnReport,
    Boolean blnDetailed, float sngScale, std::int32_t Mechanic_id, std::int32_t Item_id,
    std::uint8_t /*OptNo*/, const RecordsetPtr& rsItm, std::uint8_t btTypeOfReport,
    std::string_view /*strVouchertypeFilter*/) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::MechanicLabourReportDaily(frame, reptype,
                                                 {.bytYearno = bytYearno,
                                                  .dtFromDate = dtFromDate,
                                                  .dtToDate = dtToDate,
                                                  .blnDetailed = blnDetailed.IsSet(),
                                                  .sngScale = sngScale,
                                                  .Mechanic_id = Mechanic_id,
                                                  .Item_id = Item_id,
                                                  .btTypeOfReport = btTypeOfReport},
                                                 rsItm, blnReport);
  });
}

RecordsetPtr clsStolvane1::HypoReport(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                      Boolean blnReport, Boolean blnDetailed, float sngScale,
                                      std::string_view /*strItemstate*/,
                                      std::string_view /*strConsiderForSih*/, std::int32_t Hypo_id,
                                      std::uint8_t btTypeOfReport,
                                      std::string_view /*strVouchertypeFilter*/) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::HypoReport(frame,
                                  {.bytYearno = bytYearno,
                                   .dtFromDate = dtFromDate,
                                   .dtToDate = dtToDate,
                                   .blnDetailed = blnDetailed.IsSet(),
                                   .sngScale = sngScale,
                                   .Hypo_id = Hypo_id,
                                   .btTypeOfReport = btTypeOfReport},
                                  blnReport);
  });
}

RecordsetPtr clsStolvane1::HypoReportDaily(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                           Boolean blnReport, Boolean blnDetailed, float sngScale,
                                           std::int32_t Hypo_id, std::int32_t Item_id,
                                           std::uint8_t /*OptNo*/, const RecordsetPtr& /*rsItm*/,
                                           std::uint8_t /*btTypeOfReport*/,
                                           std::string_view /*strVouchertypeFilter*/) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::HypoReportDaily(frame,
                                       {.bytYearno = bytYearno,
                                        .dtFromDate = dtFromDate,
                                        .dtToDate = dtToDate,
                                        .blnDetailed = blnDetailed.IsSet(),
                                        .sngScale = sngScale,
                                        .Hypo_id = Hypo_id,
                                        .Item_id = Item_id},
                                       blnReport);
  });
}

Variant clsStolvane1::ClaimReport(std::uint8_t /*bytYearno*/, Date dtFromDate, Date dtToDate,
                                  std::int32_t /*lngItem_id*/, std::int32_t /*lngLedger_Id*/,
                                  Boolean /*blnUseLongDate*/, std::string_view strRefSeperator,
                                  std::uint8_t /*bytOptional*/, Boolean blnReport,
                                  Boolean /*blnDetailed*/, Boolean /*blnShowNarration*/,
                                  float sngScale, const RecordsetPtr& recitem) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return InVariant(pstolvane1::ClaimReport(frame,
                                             {.dtFromDate = dtFromDate,
                                              .dtToDate = dtToDate,
                                              .strRefSeperator = std::string(strRefSeperator),
                                              .sngScale = sngScale},
                                             recitem, blnReport));
  });
}

RecordsetPtr clsStolvane1::AutoSearch(ReportType reptype, std::uint8_t bytYearno, Date dtFromDate,
                                      Date dtToDate, std::string_view strCriteria,
                                      Boolean /*blnReport*/, float sngScale,
                                      std::string_view strBuyerFilter, std::int32_t billbybill_id,
                                      std::string_view strBillFilter,
                                      std::string_view strVouchertype,
                                      std::int32_t lngSubRelatedTo) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::AutoSearch(frame, Asked(reptype, bytYearno, dtFromDate, dtToDate,
                                               strCriteria, sngScale, strBuyerFilter, billbybill_id,
                                               strBillFilter, strVouchertype, lngSubRelatedTo));
  });
}

RecordsetPtr clsStolvane1::RTOInsSearch(ReportType reptype, std::uint8_t bytYearno, Date dtFromDate,
                                        Date dtToDate, std::string_view strCriteria,
                                        Boolean /*blnReport*/, float sngScale,
                                        std::string_view strBuyerFilter, std::int32_t billbybill_id,
                                        std::string_view strBillFilter,
                                        std::string_view strVouchertype,
                                        std::int32_t lngSubRelatedTo) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::RTOInsSearch(
        frame,
        Asked(reptype, bytYearno, dtFromDate, dtToDate, strCriteria, sngScale, strBuyerFilter,
              billbybill_id, strBillFilter, strVouchertype, lngSubRelatedTo));
  });
}

RecordsetPtr clsStolvane1::AutoSearchServices(ReportType reptype, std::uint8_t bytYearno,
                                              Date dtFromDate, Date dtToDate,
                                              std::string_view strCriteria, Boolean /*blnReport*/,
                                              float sngScale, std::string_view strBillFilter,
                                              std::int32_t billbybill_id,
                                              std::string_view strVouchertypeFilter,
                                              std::int32_t lngSubRelatedTo) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::AutoSearchServices(
        frame, Asked(reptype, bytYearno, dtFromDate, dtToDate, strCriteria, sngScale, {},
                     billbybill_id, strBillFilter, strVouchertypeFilter, lngSubRelatedTo));
  });
}

RecordsetPtr clsStolvane1::BuyerReport(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                       Boolean blnReport, Boolean blnDetailed, float sngScale,
                                       std::uint8_t /*btTypeOfBuyerReport*/,
                                       const RecordsetPtr& rsItms,
                                       std::string_view sVouchertype_id) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::BuyerReport(frame,
                                   {.bytYearno = bytYearno,
                                    .dtFromDate = dtFromDate,
                                    .dtToDate = dtToDate,
                                    .blnDetailed = blnDetailed.IsSet(),
                                    .sngScale = sngScale,
                                    .sVouchertype_id = std::string(sVouchertype_id)},
                                   rsItms, blnReport);
  });
}

Variant clsStolvane1::RtoSalesDetails(std::uint8_t /*bytYearno*/, Date dtFromDate, Date dtToDate,
                                      Boolean /*blnUseLongDate*/,
                                      std::string_view /*strRefSeperator*/,
                                      std::uint8_t /*bytOptional*/, Boolean blnReport,
                                      Boolean /*blnDetailed*/, float /*sngScale*/,
                                      const RecordsetPtr& recitem, std::int32_t Desr_Id) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return InVariant(pstolvane1::RtoSalesDetails(
        frame, {.dtFromDate = dtFromDate, .dtToDate = dtToDate, .Desr_Id = Desr_Id}, recitem,
        blnReport));
  });
}

Variant clsStolvane1::RtoSalesDetails1(std::uint8_t /*bytYearno*/, Date dtFromDate, Date dtToDate,
                                       Boolean /*blnUseLongDate*/,
                                       std::string_view /*strRefSeperator*/,
                                       std::uint8_t /*bytOptional*/, Boolean blnReport,
                                       Boolean /*blnDetailed*/, float /*sngScale*/,
                                       const RecordsetPtr& recitem) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return InVariant(pstolvane1::RtoSalesDetails1(
        frame, {.dtFromDate = dtFromDate, .dtToDate = dtToDate}, recitem, blnReport));
  });
}

Variant clsStolvane1::ServiceTax(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                 std::int32_t /*lngItem_id*/, std::int32_t /*lngLedger_Id*/,
                                 Boolean blnUseLongDate, std::string_view strRefSeperator,
                                 std::uint8_t /*bytOptional*/, Boolean blnReport,
                                 Boolean blnDetailed, Boolean /*blnShowNarration*/, float sngScale,
                                 RecordsetPtr recitem, RecordsetPtr recLedger) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return InVariant(pstolvane1::ServiceTax(frame,
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
  });
}

}  // namespace pstolvane1
