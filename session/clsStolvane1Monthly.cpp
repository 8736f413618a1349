// The month ledgers of the public class: one, of an item or of a group.
#include "monthly/Monthly.h"
#include "session/OnFrame.h"
#include "session/clsStolvane1.h"

namespace pstolvane1 {

namespace {

MonthlyArguments Asked(MonthlyTree tree, std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                       enmValuationMethod ValuationMethod, std::int32_t lngAny_Id1,
                       std::int32_t lngAny_Id2, Boolean blnAltUom, float sngScale,
                       Boolean blnOnlyItems, std::int32_t lngBatch_id = 0) {
  return {.tree = tree,
          .bytYearno = bytYearno,
          .dtFromDate = dtFromDate,
          .dtToDate = dtToDate,
          .ValuationMethod = ValuationMethod,
          .lngAny_Id1 = lngAny_Id1,
          .lngAny_Id2 = lngAny_Id2,
          .blnAltUom = blnAltUom.IsSet(),
          .sngScale = sngScale,
          .blnOnlyItems = blnOnlyItems.IsSet(),
          .lngBatch_id = lngBatch_id};
}

}  // namespace

RecordsetPtr clsStolvane1::Monthly_Itemwise(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                            enmValuationMethod ValuationMethod,
                                            std::int32_t lngAny_Id1, std::int32_t lngAny_Id2,
                                            Boolean blnReport, Boolean /*blnDetailed*/,
                                            Boolean blnAltUom, float sngScale, Boolean blnOnlyItems,
                                            Boolean /*blnShowOpening*/, Boolean /*blnShowInwards*/,
                                            Boolean /*blnShowOutwards*/) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return Monthly(frame,
                   Asked(MonthlyTree::kItem, bytYearno, dtFromDate, dtToDate, ValuationMethod,
                         lngAny_Id1, lngAny_Id2, blnAltUom, sngScale, blnOnlyItems),
                   blnReport);
  });
}

RecordsetPtr clsStolvane1::Monthly_Categorywise(
    std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, enmValuationMethod ValuationMethod,
    std::int32_t lngAny_Id1, std::int32_t lngAny_Id2, Boolean blnReport, Boolean /*blnDetailed*/,
    Boolean blnAltUom, float sngScale, Boolean blnOnlyItems, Boolean /*blnShowOpening*/,
    Boolean /*blnShowInwards*/, Boolean /*blnShowOutwards*/) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return Monthly(frame,
                   Asked(MonthlyTree::kCategory, bytYearno, dtFromDate, dtToDate, ValuationMethod,
                         lngAny_Id1, lngAny_Id2, blnAltUom, sngScale, blnOnlyItems),
                   blnReport);
  });
}

RecordsetPtr clsStolvane1::Monthly_Classwise(
    std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, enmValuationMethod ValuationMethod,
    std::int32_t lngAny_Id1, std::int32_t lngAny_Id2, Boolean blnReport, Boolean /*blnDetailed*/,
    Boolean blnAltUom, float sngScale, Boolean blnOnlyItems, Boolean /*blnShowOpening*/,
    Boolean /*blnShowInwards*/, Boolean /*blnShowOutwards*/) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return Monthly(frame,
                   Asked(MonthlyTree::kClass, bytYearno, dtFromDate, dtToDate, ValuationMethod,
                         lngAny_Id1, lngAny_Id2, blnAltUom, sngScale, blnOnlyItems),
                   blnReport);
  });
}

RecordsetPtr clsStolvane1::Monthly_Godownwise(
    std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, enmValuationMethod ValuationMethod,
    std::int32_t lngAny_Id1, std::int32_t lngAny_Id2, Boolean blnReport, Boolean /*blnDetailed*/,
    Boolean blnAltUom, float sngScale, Boolean blnOnlyItems, Boolean /*blnShowOpening*/,
    Boolean /*blnShowInwards*/, Boolean /*blnShowOutwards*/) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return Monthly(frame,
                   Asked(MonthlyTree::kGodown, bytYearno, dtFromDate, dtToDate, ValuationMethod,
                         lngAny_Id1, lngAny_Id2, blnAltUom, sngScale, blnOnlyItems),
                   blnReport);
  });
}

RecordsetPtr clsStolvane1::Monthly_GodownItemwise(
    std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, enmValuationMethod ValuationMethod,
    std::int32_t lngAny_Id1, std::int32_t lngAny_Id2, Boolean blnReport, Boolean /*blnDetailed*/,
    Boolean blnAltUom, float sngScale, Boolean blnOnlyItems, Boolean /*blnShowOpening*/,
    Boolean /*blnShowInwards*/, Boolean /*blnShowOutwards*/, std::int32_t lngBatch_id) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return Monthly(frame,
                   Asked(MonthlyTree::kGodownItem, bytYearno, dtFromDate, dtToDate, ValuationMethod,
                         lngAny_Id1, lngAny_Id2, blnAltUom, sngScale, blnOnlyItems, lngBatch_id),
                   blnReport);
  });
}

}  // namespace pstolvane1
