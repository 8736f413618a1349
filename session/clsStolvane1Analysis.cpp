// The lists and analyses of the public class.
#include "analysis/CategoryWise_Initial.h"
#include "analysis/Colorwise.h"
#include "analysis/Commission.h"
#include "analysis/DailyAnalysis.h"
#include "analysis/Doc_Initial.h"
#include "analysis/ItemWise_DlyBkup.h"
#include "analysis/LedgersByCode.h"
#include "analysis/MovementAnalysis.h"
#include "session/OnFrame.h"
#include "session/clsStolvane1.h"

namespace pstolvane1 {

namespace {

MovementArguments Movements(MovementSide side, std::int32_t lngId, Date dtFromDate, Date dtToDate,
                            Boolean blnDetailed, float sngScale, std::string_view strConsiderForSih,
                            std::string_view strItemstate) {
  return {.side = side,
          .lngId = lngId,
          .dtFromDate = dtFromDate,
          .dtToDate = dtToDate,
          .blnDetailed = blnDetailed.IsSet(),
          .sngScale = sngScale,
          .strConsiderForSih = std::string(strConsiderForSih),
          .strItemstate = std::string(strItemstate),
          .item_text = {}};
}

DailyArguments Days(MovementSide side, std::int32_t lngId, std::int32_t lngId2, Date dtFromDate,
                    Date dtToDate, Boolean LongDate, float sngScale, std::string_view RefSeperator,
                    std::string_view strConsiderForSih, std::string_view strItemstate) {
  return {.side = side,
          .lngId = lngId,
          .lngId2 = lngId2,
          .dtFromDate = dtFromDate,
          .dtToDate = dtToDate,
          .blnUseLongDate = LongDate.IsSet(),
          .sngScale = sngScale,
          .strRefSeperator = std::string(RefSeperator),
          .strConsiderForSih = std::string(strConsiderForSih),
          .strItemstate = std::string(strItemstate)};
}

// The lines of a report from what was fetched last; its builder reads `source` first. What failed
// before it had rows was fetched no more than what was never asked for.
RecordsetPtr BuildAgain(const std::shared_ptr<ReportFrame>& kept, ReportType report_type,
                        Source source) {
  return OnFrame(kept, [&](ReportFrame& frame) {
    if (frame.Rowset(source)->State() == adStateClosed) {
      throw Error(ErrorNumber::kObjectNotSet, "the report whose lines are asked for failed");
    }
    return frame.Build(*frame.RowOf(report_type));
  });
}

}  // namespace

RecordsetPtr clsStolvane1::Doc_Initial(std::uint8_t bytYearno, std::int32_t lngVouchertype_id,
                                       Date dtFromDate, Date dtToDate, Boolean blnReport,
                                       float gScale, Boolean blnNoRel,
                                       std::int32_t /*vhtypeId_NotInc*/,
                                       std::string_view strBillFilter) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::Doc_Initial(frame,
                                   {.bytYearno = bytYearno,
                                    .lngVouchertype_id = lngVouchertype_id,
                                    .dtFromDate = dtFromDate,
                                    .dtToDate = dtToDate,
                                    .gScale = gScale,
                                    .blnNoRel = blnNoRel.IsSet(),
                                    .strBillFilter = std::string(strBillFilter)},
                                   blnReport);
  });
}

RecordsetPtr clsStolvane1::LedgersByCode(std::uint8_t bytYearno, std::string& sCode,
                                         Boolean blnReport) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::LedgersByCode(frame, bytYearno, sCode, blnReport);
  });
}

RecordsetPtr clsStolvane1::CustomerItemwise_Analysis(
    ReportType& reptype, std::uint8_t /*bytYearno*/, std::int32_t lngId, Date dtFromDate,
    const Variant& dtToDate, Boolean blnDetailed, Boolean blnReport, float sngScale,
    std::string_view strConsiderForSih, std::string_view strItemstate,
    const RecordsetPtr& rsItems) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return MovementAnalysis(frame,
                            Movements(MovementSide::kSales, lngId, dtFromDate, dtToDate.ToDate(),
                                      blnDetailed, sngScale, strConsiderForSih, strItemstate),
                            reptype, blnReport, rsItems);
  });
}

RecordsetPtr clsStolvane1::Movement_PurchaseReturns_Analysis(
    ReportType& reptype, std::uint8_t /*bytYearno*/, std::int32_t lngId, Date dtFromDate,
    const Variant& dtToDate, Boolean blnDetailed, Boolean blnReport, float sngScale,
    std::string_view strConsiderForSih, std::string_view strItemstate) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return MovementAnalysis(
        frame,
        Movements(MovementSide::kPurchases, lngId, dtFromDate, dtToDate.ToDate(), blnDetailed,
                  sngScale, strConsiderForSih, strItemstate),
        reptype, blnReport, nullptr);
  });
}

RecordsetPtr clsStolvane1::CustomerItemDaily_Analysis(
    ReportType& reptype, std::uint8_t /*bytYearno*/, std::int32_t lngId, std::int32_t lngId2,
    Date dtFromDate, Date dtToDate, Boolean blnReport, Boolean LongDate, float sngScale,
    std::string_view RefSeperator, std::uint8_t /*bytOptional*/, std::string_view strConsiderForSih,
    std::string_view strItemstate) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return DailyAnalysis(frame,
                         Days(MovementSide::kSales, lngId, lngId2, dtFromDate, dtToDate, LongDate,
                              sngScale, RefSeperator, strConsiderForSih, strItemstate),
                         reptype, blnReport);
  });
}

RecordsetPtr clsStolvane1::Movement_PurchaseReturns_DailyAnalysis(
    ReportType& reptype, std::uint8_t /*bytYearno*/, std::int32_t lngId, std::int32_t lngId2,
    Date dtFromDate, Date dtToDate, Boolean blnReport, Boolean LongDate, float sngScale,
    std::string_view RefSeperator, std::uint8_t /*bytOptional*/, std::string_view strConsiderForSih,
    std::string_view strItemstate) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return DailyAnalysis(frame,
                         Days(MovementSide::kPurchases, lngId, lngId2, dtFromDate, dtToDate,
                              LongDate, sngScale, RefSeperator, strConsiderForSih, strItemstate),
                         reptype, blnReport);
  });
}

RecordsetPtr clsStolvane1::Commission_Initial(ReportType& reptype, std::uint8_t /*bytYearno*/,
                                              Date dtFromDate, Date dtToDate, Boolean blnDetailed,
                                              std::int32_t lngId1, Boolean blnReport,
                                              float sngScale, const RecordsetPtr& recitem) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::Commission_Initial(frame,
                                          {.reptype = reptype,
                                           .dtFromDate = dtFromDate,
                                           .dtToDate = dtToDate,
                                           .blnDetailed = blnDetailed.IsSet(),
                                           .lngId1 = lngId1,
                                           .sngScale = sngScale},
                                          blnReport, recitem);
  });
}

RecordsetPtr clsStolvane1::Commission_Daily(std::uint8_t /*bytYearno*/, Date dtFromDate,
                                            Date dtToDate, std::int32_t lngEmployee_Id,
                                            std::int32_t lngItem_id, Boolean blnReport,
                                            float sngScale, Boolean blnLongDate,
                                            std::uint8_t /*bytOpt*/, std::string_view sRefSep) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::Commission_Daily(frame,
                                        {.dtFromDate = dtFromDate,
                                         .dtToDate = dtToDate,
                                         .lngEmployee_Id = lngEmployee_Id,
                                         .lngItem_id = lngItem_id,
                                         .sngScale = sngScale,
                                         .blnUseLongDate = blnLongDate.IsSet(),
                                         .strRefSeperator = std::string(sRefSep)},
                                        blnReport);
  });
}

RecordsetPtr clsStolvane1::Colorwise_Initial(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                             std::int32_t lngItem_id, Boolean blnReport,
                                             Boolean /*blnDetailed*/, std::string_view strItemstate,
                                             std::string_view strConsiderForSih) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::Colorwise_Initial(frame,
                                         {.bytYearno = bytYearno,
                                          .dtFromDate = dtFromDate,
                                          .dtToDate = dtToDate,
                                          .lngItem_id = lngItem_id,
                                          .strItemstate = std::string(strItemstate),
                                          .strConsiderForSih = std::string(strConsiderForSih)},
                                         blnReport);
  });
}

RecordsetPtr clsStolvane1::mColorwise_Initial() {
  return BuildAgain(frame_, rtColorwise_Initial, Source::rsReport);
}

RecordsetPtr clsStolvane1::Colorwise_Monthly(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                             std::int32_t lngItem_id, std::string_view lngColor_Id,
                                             Boolean blnReport) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::Colorwise_Monthly(frame,
                                         {.bytYearno = bytYearno,
                                          .dtFromDate = dtFromDate,
                                          .dtToDate = dtToDate,
                                          .lngItem_id = lngItem_id,
                                          .lngColor_Id = std::string(lngColor_Id)},
                                         blnReport);
  });
}

RecordsetPtr clsStolvane1::mColorwise_Monthly() {
  return BuildAgain(frame_, rtColorwise_Monthly, Source::Rs1);
}

RecordsetPtr clsStolvane1::Colorwise_Daily(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                           std::int32_t lngItem_id, std::string_view lngColor_Id,
                                           Boolean blnReport, std::string_view sRefSep,
                                           std::uint8_t /*bytOpt*/, Boolean blnLongDate) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::Colorwise_Daily(frame,
                                       {.bytYearno = bytYearno,
                                        .dtFromDate = dtFromDate,
                                        .dtToDate = dtToDate,
                                        .lngItem_id = lngItem_id,
                                        .lngColor_Id = std::string(lngColor_Id),
                                        .strRefSeperator = std::string(sRefSep),
                                        .blnUseLongDate = blnLongDate.IsSet()},
                                       blnReport);
  });
}

RecordsetPtr clsStolvane1::mColorwise_Daily() {
  return BuildAgain(frame_, rtColorwise_Daily, Source::Rs1);
}

RecordsetPtr clsStolvane1::CategoryWise_Initial(Boolean blnIsclass, std::uint8_t bytYearno,
                                                Date dtFromDate, Date dtToDate, std::int32_t lngId,
                                                std::int32_t lngVouchertype_id, Boolean blnReport,
                                                Boolean blnDetailed, float sngScale,
                                                std::string_view strConsiderForSih,
                                                std::string_view strItemstate) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::CategoryWise_Initial(frame,
                                            {.blnIsclass = blnIsclass.IsSet(),
                                             .bytYearno = bytYearno,
                                             .dtFromDate = dtFromDate,
                                             .dtToDate = dtToDate,
                                             .lngId = lngId,
                                             .lngVouchertype_id = lngVouchertype_id,
                                             .blnDetailed = blnDetailed.IsSet(),
                                             .sngScale = sngScale,
                                             .strConsiderForSih = std::string(strConsiderForSih),
                                             .strItemstate = std::string(strItemstate)},
                                            blnReport);
  });
}

RecordsetPtr clsStolvane1::ItemWise_DlyBkup(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                            std::int32_t Item_id, std::int32_t Ledger_id,
                                            std::string_view strVouchertype, Boolean blnReport,
                                            float sngScale, std::string_view strConsiderForSih,
                                            std::string_view strItemstate, std::int32_t Cat_id,
                                            Boolean blnIsclass) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return pstolvane1::ItemWise_DlyBkup(frame,
                                        {.bytYearno = bytYearno,
                                         .dtFromDate = dtFromDate,
                                         .dtToDate = dtToDate,
                                         .Item_id = Item_id,
                                         .Ledger_id = Ledger_id,
                                         .strVouchertype = std::string(strVouchertype),
                                         .sngScale = sngScale,
                                         .strConsiderForSih = std::string(strConsiderForSih),
                                         .strItemstate = std::string(strItemstate),
                                         .Cat_id = Cat_id,
                                         .blnIsclass = blnIsclass.IsSet()},
                                        blnReport);
  });
}

RecordsetPtr clsStolvane1::mItemwise_DlyBreakup() {
  return BuildAgain(frame_, rtItemwise_DlyBkup, Source::rsReport);
}

}  // namespace pstolvane1
