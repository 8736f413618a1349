#include "session/clsStolvane1.h"

#include <utility>

#include "analysis/Doc_Initial.h"
#include "analysis/LedgersByCode.h"
#include "bills/MultiplePriceList.h"
#include "session/POrderTextQuery.h"
#include "session/ReportFrame.h"
#include "session/ReportTable.h"
#include "session/engine/Engines.h"
#include "stock/StockDetails.h"

namespace pstolvane1 {
namespace {

// The frame of a call, kept to its end: a handler may destroy the session inside it.
using FramePtr = std::shared_ptr<ReportFrame>;

}  // namespace

clsStolvane1::clsStolvane1() : clsStolvane1(&NewBooksConnection) {}

clsStolvane1::clsStolvane1(ConnectionMaker make_connection)
    : frame_(std::make_shared<ReportFrame>(AllReports(), std::move(make_connection), *this)) {}

clsStolvane1::~clsStolvane1() { frame_->Class_Terminate(); }

bool clsStolvane1::SetConnection(std::string_view /*strProvider*/,
                                 std::string_view strConnectionString,
                                 std::string_view strConnectionString1, Boolean AsyncConnect,
                                 Date dtFromDate, Date dtToDate, std::string_view strCurrencyPrefix,
                                 std::string_view strCurrencySuffix) {
  const FramePtr frame = frame_;
  frame->SetConnection(strConnectionString, strConnectionString1, AsyncConnect, dtFromDate,
                       dtToDate, strCurrencyPrefix, strCurrencySuffix);
  return true;
}

std::shared_ptr<Connection> clsStolvane1::GetConnectionObject() const { return frame_->MainCn; }

void clsStolvane1::SetLocale(std::string_view name) { frame_->SetLocale(name); }

void clsStolvane1::SetAliases(const typAliases& pAlias) { frame_->Aliases = pAlias; }

Variant clsStolvane1::SetFilter(std::string_view strVouchertypeFilter,
                                std::string_view strSubgroupFilter, std::uint8_t btTypeOfentry,
                                std::uint8_t OptNo) {
  frame_->module.filter = {std::string(strVouchertypeFilter), std::string(strSubgroupFilter),
                           btTypeOfentry, OptNo};
  return {};
}

void clsStolvane1::CancelFetching(Boolean cancel) { frame_->blnCancelFetching = cancel; }

bool clsStolvane1::Fetching() const { return frame_->Fetching(); }

Variant clsStolvane1::UserPressedCancel() {
  frame_->blnUserPressedCancel = true;
  return {};
}

RecordsetPtr clsStolvane1::POrderTextQuery(std::string_view strFilter) {
  const FramePtr frame = frame_;
  return pstolvane1::POrderTextQuery(*frame, strFilter);
}

RecordsetPtr clsStolvane1::Doc_Initial(std::uint8_t bytYearno, std::int32_t lngVouchertype_id,
                                       Date dtFromDate, Date dtToDate, Boolean blnReport,
                                       float gScale, Boolean blnNoRel,
                                       std::int32_t /*vhtypeId_NotInc*/,
                                       std::string_view strBillFilter) {
  const FramePtr frame = frame_;
  return pstolvane1::Doc_Initial(*frame, bytYearno, lngVouchertype_id, dtFromDate, dtToDate,
                                 blnReport, gScale, blnNoRel, strBillFilter);
}

RecordsetPtr clsStolvane1::LedgersByCode(std::uint8_t bytYearno, std::string& sCode,
                                         Boolean blnReport) {
  const FramePtr frame = frame_;
  return pstolvane1::LedgersByCode(*frame, bytYearno, sCode, blnReport);
}

RecordsetPtr clsStolvane1::MultiplePriceList(std::uint8_t /*bytYearno*/, Date /*dtFromDate*/,
                                             Date /*dtToDate*/, std::int32_t /*lngPriceList_Id*/,
                                             std::int32_t lngCategory_Id, std::int32_t lngClass_Id,
                                             Boolean blnReport, std::string_view itemstate,
                                             std::string_view cosiderforsih) {
  const FramePtr frame = frame_;
  return pstolvane1::MultiplePriceList(*frame, lngCategory_Id, lngClass_Id, blnReport, itemstate,
                                       cosiderforsih);
}

RecordsetPtr clsStolvane1::StockDetails_Itemwise(
    std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, enmValuationMethod ValuationMethod,
    std::int32_t lngAny_Id1, std::int32_t /*lngAny_Id2*/, Boolean blnReport, Boolean blnDetailed,
    Boolean blnAltUom, float sngScale, Boolean blnOnlyItems, Boolean /*blnShowOpening*/,
    Boolean /*blnShowInwards*/, Boolean /*blnShowOutwards*/, std::string_view strConsiderForSih,
    std::string_view strItemstate) {
  const FramePtr frame = frame_;
  return StockDetails(*frame,
                      {.tree = StockTree::kItem,
                       .bytYearno = bytYearno,
                       .dtFromDate = dtFromDate,
                       .dtToDate = dtToDate,
                       .ValuationMethod = ValuationMethod,
                       .lngAny_Id1 = lngAny_Id1,
                       .blnReport = blnReport,
                       .blnDetailed = blnDetailed.IsSet(),
                       .blnAltUom = blnAltUom.IsSet(),
                       .sngScale = sngScale,
                       .blnOnlyItems = blnOnlyItems.IsSet()},
                      strConsiderForSih, strItemstate);
}

RecordsetPtr clsStolvane1::StockDetails_Categorywise(
    std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, enmValuationMethod ValuationMethod,
    std::int32_t lngAny_Id1, std::int32_t /*lngAny_Id2*/, Boolean blnReport, Boolean blnDetailed,
    Boolean blnAltUom, float sngScale, Boolean blnOnlyItems, Boolean /*blnShowOpening*/,
    Boolean /*blnShowInwards*/, Boolean /*blnShowOutwards*/, std::string_view strConsiderForSih,
    std::string_view strItemstate) {
  const FramePtr frame = frame_;
  return StockDetails(*frame,
                      {.tree = StockTree::kCategory,
                       .bytYearno = bytYearno,
                       .dtFromDate = dtFromDate,
                       .dtToDate = dtToDate,
                       .ValuationMethod = ValuationMethod,
                       .lngAny_Id1 = lngAny_Id1,
                       .blnReport = blnReport,
                       .blnDetailed = blnDetailed.IsSet(),
                       .blnAltUom = blnAltUom.IsSet(),
                       .sngScale = sngScale,
                       .blnOnlyItems = blnOnlyItems.IsSet()},
                      strConsiderForSih, strItemstate);
}

RecordsetPtr clsStolvane1::StockDetails_Classwise(
    std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, enmValuationMethod ValuationMethod,
    std::int32_t lngAny_Id1, std::int32_t /*lngAny_Id2*/, Boolean blnReport, Boolean blnDetailed,
    Boolean blnAltUom, float sngScale, Boolean blnOnlyItems, Boolean /*blnShowOpening*/,
    Boolean /*blnShowInwards*/, Boolean /*blnShowOutwards*/, std::string_view strConsiderForSih,
    std::string_view strItemstate) {
  const FramePtr frame = frame_;
  return StockDetails(*frame,
                      {.tree = StockTree::kClass,
                       .bytYearno = bytYearno,
                       .dtFromDate = dtFromDate,
                       .dtToDate = dtToDate,
                       .ValuationMethod = ValuationMethod,
                       .lngAny_Id1 = lngAny_Id1,
                       .blnReport = blnReport,
                       .blnDetailed = blnDetailed.IsSet(),
                       .blnAltUom = blnAltUom.IsSet(),
                       .sngScale = sngScale,
                       .blnOnlyItems = blnOnlyItems.IsSet()},
                      strConsiderForSih, strItemstate);
}

RecordsetPtr clsStolvane1::StockDetails_Godownwise(
    std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, enmValuationMethod ValuationMethod,
    std::int32_t lngAny_Id1, std::int32_t /*lngAny_Id2*/, Boolean blnReport, Boolean blnDetailed,
    Boolean blnAltUom, float sngScale, Boolean blnOnlyItems, Boolean /*blnShowOpening*/,
    Boolean /*blnShowInwards*/, Boolean /*blnShowOutwards*/, std::string_view strConsiderForSih,
    std::string_view strItemstate) {
  const FramePtr frame = frame_;
  return StockDetails(*frame,
                      {.tree = StockTree::kGodown,
                       .bytYearno = bytYearno,
                       .dtFromDate = dtFromDate,
                       .dtToDate = dtToDate,
                       .ValuationMethod = ValuationMethod,
                       .lngAny_Id1 = lngAny_Id1,
                       .blnReport = blnReport,
                       .blnDetailed = blnDetailed.IsSet(),
                       .blnAltUom = blnAltUom.IsSet(),
                       .sngScale = sngScale,
                       .blnOnlyItems = blnOnlyItems.IsSet()},
                      strConsiderForSih, strItemstate);
}

}  // namespace pstolvane1
