// The free quantity and pending reports of the public class.
#include "pending/FreeQuantity.h"
#include "pending/FreeQuantity_Initial.h"
#include "session/clsStolvane1.h"

namespace pstolvane1 {

using FramePtr = std::shared_ptr<ReportFrame>;

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

}  // namespace

RecordsetPtr clsStolvane1::FreeQuantity_Itemwise(std::uint8_t bytYearno, Date dtFromDate,
                                                 Date dtToDate, std::int32_t lngItem_id,
                                                 std::int32_t lngLedger_Id, Boolean blnUseLongDate,
                                                 std::string_view strRefSeperator,
                                                 std::uint8_t bytOptional, Boolean blnReport,
                                                 Boolean blnDetailed, Boolean blnShowNarration,
                                                 float sngScale) {
  return FreeQuantity(*FramePtr(frame_),
                      AskedLines(FreeQuantityOf::kItem, bytYearno, dtFromDate, dtToDate, lngItem_id,
                                 lngLedger_Id, blnUseLongDate, strRefSeperator, bytOptional,
                                 blnDetailed, blnShowNarration, sngScale),
                      blnReport);
}

RecordsetPtr clsStolvane1::FreeQuantity_Partywise(std::uint8_t bytYearno, Date dtFromDate,
                                                  Date dtToDate, std::int32_t lngLedger_Id,
                                                  std::int32_t lngItem_id, Boolean blnUseLongDate,
                                                  std::string_view strRefSeperator,
                                                  std::uint8_t bytOptional, Boolean blnReport,
                                                  Boolean blnDetailed, Boolean blnShowNarration,
                                                  float sngScale) {
  return FreeQuantity(*FramePtr(frame_),
                      AskedLines(FreeQuantityOf::kParty, bytYearno, dtFromDate, dtToDate,
                                 lngItem_id, lngLedger_Id, blnUseLongDate, strRefSeperator,
                                 bytOptional, blnDetailed, blnShowNarration, sngScale),
                      blnReport);
}

RecordsetPtr clsStolvane1::FreeQuantity_Itemwise_Initial(std::uint8_t bytYearno, Date dtFromDate,
                                                         Date dtToDate, Boolean blnReport,
                                                         Boolean blnDetailed, float sngScale) {
  return FreeQuantity_Initial(
      *FramePtr(frame_),
      AskedSums(FreeQuantityOf::kItem, bytYearno, dtFromDate, dtToDate, blnDetailed, sngScale),
      blnReport);
}

RecordsetPtr clsStolvane1::FreeQuantity_Partywise_Initial(std::uint8_t bytYearno, Date dtFromDate,
                                                          Date dtToDate, Boolean blnReport,
                                                          Boolean blnDetailed, float sngScale) {
  return FreeQuantity_Initial(
      *FramePtr(frame_),
      AskedSums(FreeQuantityOf::kParty, bytYearno, dtFromDate, dtToDate, blnDetailed, sngScale),
      blnReport);
}

}  // namespace pstolvane1
