// The stock statements of the public class: one, under four trees.
#include "session/OnFrame.h"
#include "session/clsStolvane1.h"
#include "stock/StockDetails.h"

namespace pstolvane1 {

namespace {

StockArguments Asked(StockTree tree, std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                     enmValuationMethod ValuationMethod, std::int32_t lngAny_Id1,
                     Boolean blnDetailed, Boolean blnAltUom, float sngScale, Boolean blnOnlyItems) {
  return {.tree = tree,
          .bytYearno = bytYearno,
          .dtFromDate = dtFromDate,
          .dtToDate = dtToDate,
          .ValuationMethod = ValuationMethod,
          .lngAny_Id1 = lngAny_Id1,
          .blnDetailed = blnDetailed.IsSet(),
          .blnAltUom = blnAltUom.IsSet(),
          .sngScale = sngScale,
          .blnOnlyItems = blnOnlyItems.IsSet()};
}

}  // namespace

RecordsetPtr clsStolvane1::StockDetails_Itemwise(
    std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, enmValuationMethod ValuationMethod,
    std::int32_t lngAny_Id1, std::int32_t /*lngAny_Id2*/, Boolean blnReport, Boolean blnDetailed,
    Boolean blnAltUom, float sngScale, Boolean blnOnlyItems, Boolean /*blnShowOpening*/,
    Boolean /*blnShowInwards*/, Boolean /*blnShowOutwards*/, std::string_view strConsiderForSih,
    std::string_view strItemstate) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return StockDetails(frame,
                        Asked(StockTree::kItem, bytYearno, dtFromDate, dtToDate, ValuationMethod,
                              lngAny_Id1, blnDetailed, blnAltUom, sngScale, blnOnlyItems),
                        blnReport, strConsiderForSih, strItemstate);
  });
}

RecordsetPtr clsStolvane1::StockDetails_Categorywise(
    std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, enmValuationMethod ValuationMethod,
    std::int32_t lngAny_Id1, std::int32_t /*lngAny_Id2*/, Boolean blnReport, Boolean blnDetailed,
    Boolean blnAltUom, float sngScale, Boolean blnOnlyItems, Boolean /*blnShowOpening*/,
    Boolean /*blnShowInwards*/, Boolean /*blnShowOutwards*/, std::string_view strConsiderForSih,
    std::string_view strItemstate) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return StockDetails(
        frame,
        Asked(StockTree::kCategory, bytYearno, dtFromDate, dtToDate, ValuationMethod, lngAny_Id1,
              blnDetailed, blnAltUom, sngScale, blnOnlyItems),
        blnReport, strConsiderForSih, strItemstate);
  });
}

RecordsetPtr clsStolvane1::StockDetails_Classwise(
    std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, enmValuationMethod ValuationMethod,
    std::int32_t lngAny_Id1, std::int32_t /*lngAny_Id2*/, Boolean blnReport, Boolean blnDetailed,
    Boolean blnAltUom, float sngScale, Boolean blnOnlyItems, Boolean /*blnShowOpening*/,
    Boolean /*blnShowInwards*/, Boolean /*blnShowOutwards*/, std::string_view strConsiderForSih,
    std::string_view strItemstate) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return StockDetails(frame,
                        Asked(StockTree::kClass, bytYearno, dtFromDate, dtToDate, ValuationMethod,
                              lngAny_Id1, blnDetailed, blnAltUom, sngScale, blnOnlyItems),
                        blnReport, strConsiderForSih, strItemstate);
  });
}

RecordsetPtr clsStolvane1::StockDetails_Godownwise(
    std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, enmValuationMethod ValuationMethod,
    std::int32_t lngAny_Id1, std::int32_t /*lngAny_Id2*/, Boolean blnReport, Boolean blnDetailed,
    Boolean blnAltUom, float sngScale, Boolean blnOnlyItems, Boolean /*blnShowOpening*/,
    Boolean /*blnShowInwards*/, Boolean /*blnShowOutwards*/, std::string_view strConsiderForSih,
    std::string_view strItemstate) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    return StockDetails(frame,
                        Asked(StockTree::kGodown, bytYearno, dtFromDate, dtToDate, ValuationMethod,
                              lngAny_Id1, blnDetailed, blnAltUom, sngScale, blnOnlyItems),
                        blnReport, strConsiderForSih, strItemstate);
  });
}

}  // namespace pstolvane1
