// The free quantity and pending reports of the public class.
#include "pending/FreeQuantity.h"
#include "pending/FreeQuantity_Initial.h"
#include "pending/PendingDocuments.h"
#include "session/OnFrame.h"
#include "session/clsStolvane1.h"

namespace pstolvane1 {

namespace {

FreeQuantityArguments AskedLines(FreeQuantityOf of, std::uint8_t bytYearno, Date dtFromDate,
                                 Date dtToDate, std::int32_t lngItem_id, std::int32_t lngLedger_Id,
                                 Boolean blnUseLongDate, std::string_view strRefSeperator,
                                 std::uint8_t bytOptional, Boolean blnDetailed,
                                 Boolean blnShowNarration, float sngScale) {
  return {.of = of,
          .bytYearno = bytYearno,
          .dtFromDate = dtFromDate,
          .dtToDate = dtToDate,
          .lngItem_id = lngItem_id,
          .lngLedger_Id = lngLedger_Id,
          .blnUseLongDate = blnUseLongDate.IsSet(),
          .strRefSeperator = std::string(strRefSeperator),
          .bytOptional = bytOptional,
          .blnDetailed = blnDetailed.IsSet(),
          .blnShowNarration = blnShowNarration.IsSet(),
          .sngScale = sngScale};
}

FreeSummaryArguments AskedSums(FreeQuantityOf of, std::uint8_t bytYearno, Date dtFromDate,
                               Date dtToDate, Boolean blnDetailed, float sngScale) {
  return {.of = of,
          .bytYearno = bytYearno,
          .dtFromDate = dtFromDate,
          .dtToDate = dtToDate,
          .blnDetailed = blnDetailed.IsSet(),
          .sngScale = sngScale};
}

PendingArguments AskedPending(PendingOf of, std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                              float sngScale, Boolean blnDetailed, Boolean LongDate,
                              Boolean blnShowNarr, std::string_view strRefSep) {
  return {.of = of,
          .bytYearno = bytYearno,
          .dtFromDate = dtFromDate,
          .dtToDate = dtToDate,
          .sngScale = sngScale,
          .blnDetailed = blnDetailed.IsSet(),
          .blnUseLongDate = LongDate.IsSet(),
          .blnShowNarration = blnShowNarr.IsSet(),
          .strRefSeperator = std::string(strRefSep)};
}

}  // namespace

RecordsetPtr clsStolvane1::FreeQuantity_Itemwise(std::uint8_t bytYearno, Date dtFromDate,
                                                 Date dtToDate, std::int32_t lngItem_id,
                                                 std::int32_t lngLedger_Id, Boolean blnUseLongDate,
                                                 std::string_view strRefSeperator,
                                                 std::uint8_t bytOptional, Boolean blnReport,
                                                 Boolean blnDetailed, Boolean blnShowNarration,
                                                 float sngScale) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return FreeQuantity(frame,
                        AskedLines(FreeQuantityOf::kItem, bytYearno, dtFromDate, dtToDate,
                                   lngItem_id, lngLedger_Id, blnUseLongDate, strRefSeperator,
                                   bytOptional, blnDetailed, blnShowNarration, sngScale),
                        blnReport);
  });
}

RecordsetPtr clsStolvane1::FreeQuantity_Partywise(std::uint8_t bytYearno, Date dtFromDate,
                                                  Date dtToDate, std::int32_t lngLedger_Id,
                                                  std::int32_t lngItem_id, Boolean blnUseLongDate,
                                                  std::string_view strRefSeperator,
                                                  std::uint8_t bytOptional, Boolean blnReport,
                                                  Boolean blnDetailed, Boolean blnShowNarration,
                                                  float sngScale) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return FreeQuantity(frame,
                        AskedLines(FreeQuantityOf::kParty, bytYearno, dtFromDate, dtToDate,
                                   lngItem_id, lngLedger_Id, blnUseLongDate, strRefSeperator,
                                   bytOptional, blnDetailed, blnShowNarration, sngScale),
                        blnReport);
  });
}

RecordsetPtr clsStolvane1::FreeQuantity_Itemwise_Initial(std::uint8_t bytYearno, Date dtFromDate,
                                                         Date dtToDate, Boolean blnReport,
                                                         Boolean blnDetailed, float sngScale) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return FreeQuantity_Initial(
        frame,
        AskedSums(FreeQuantityOf::kItem, bytYearno, dtFromDate, dtToDate, blnDetailed, sngScale),
        blnReport);
  });
}

RecordsetPtr clsStolvane1::FreeQuantity_Partywise_Initial(std::uint8_t bytYearno, Date dtFromDate,
                                                          Date dtToDate, Boolean blnReport,
                                                          Boolean blnDetailed, float sngScale) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return FreeQuantity_Initial(
        frame,
        AskedSums(FreeQuantityOf::kParty, bytYearno, dtFromDate, dtToDate, blnDetailed, sngScale),
        blnReport);
  });
}

RecordsetPtr clsStolvane1::PendingByItem(std::uint8_t bytYearno, std::int32_t lngItem_id,
                                         std::int32_t lngLedger_Id, Date dtFromDate, Date dtToDate,
                                         Boolean blnReport, float sngScale,
                                         std::uint8_t /*bytOptional*/, Boolean blnDetailed,
                                         Boolean LongDate, Boolean blnShowNarr,
                                         std::string_view strRefSep,
                                         Boolean /*blnIncludeRelatedVoucherTypes*/) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    PendingArguments arguments =
        AskedPending(PendingOf::kItem, bytYearno, dtFromDate, dtToDate, sngScale, blnDetailed,
                     LongDate, blnShowNarr, strRefSep);
    arguments.lngItem_id = lngItem_id;
    arguments.lngLedger_Id = lngLedger_Id;
    return Pending(frame, arguments, blnReport);
  });
}

RecordsetPtr clsStolvane1::PendingByLedger(std::uint8_t bytYearno, std::int32_t lngLedger_Id,
                                           std::int32_t lngItem_id, Date dtFromDate, Date dtToDate,
                                           Boolean blnReport, float sngScale,
                                           std::uint8_t /*bytOptional*/, Boolean blnDetailed,
                                           Boolean LongDate, Boolean blnShowNarr,
                                           std::string_view strRefSep,
                                           Boolean /*blnIncludeRelatedVoucherTypes*/) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    PendingArguments arguments =
        AskedPending(PendingOf::kLedger, bytYearno, dtFromDate, dtToDate, sngScale, blnDetailed,
                     LongDate, blnShowNarr, strRefSep);
    arguments.lngLedger_Id = lngLedger_Id;
    arguments.lngItem_id = lngItem_id;
    return Pending(frame, arguments, blnReport);
  });
}

RecordsetPtr clsStolvane1::PendingByEmployee(std::uint8_t bytYearno, std::int32_t lngEmployee_Id,
                                             std::int32_t lngVouchertype_id, Date dtFromDate,
                                             Date dtToDate, Boolean blnReport, float sngScale,
                                             std::uint8_t /*bytOptional*/, Boolean blnDetailed,
                                             Boolean LongDate, Boolean blnShowNarr,
                                             std::string_view strRefSep,
                                             Boolean /*blnIncludeRelatedVoucherTypes*/) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    PendingArguments arguments =
        AskedPending(PendingOf::kEmployee, bytYearno, dtFromDate, dtToDate, sngScale, blnDetailed,
                     LongDate, blnShowNarr, strRefSep);
    arguments.lngEmployee_Id = lngEmployee_Id;
    arguments.lngVouchertype_id = lngVouchertype_id;
    return Pending(frame, arguments, blnReport);
  });
}

}  // namespace pstolvane1
