// The reports that a session knows.
#pragma once

#include <cstdint>

#include "session/EnumName.h"

namespace pstolvane1 {

// One line a value, so that the names can be read out by a program as well. Most are set by an
// operation; operations with an argument of this type say which values they take.
// clang-format off
#define PST_REPORT_TYPES(X) \
  X(rtFreeQuantity_Itemwise, 1) \
  X(rtFreeQuantity_Partywise, 2) \
  X(rtFreeQuantity_Itemwise_Initial, 3) \
  X(rtFreeQuantity_Partywise_Initial, 4) \
  X(rtPendingByItem, 5) \
  X(rtPendingByLedger, 6) \
  X(rtPendingByEmployee, 7) \
  X(rtDoc_Initial, 8) \
  X(rtLedgersByCode, 9) \
  X(rtMovement_SalesReturns_LedgerAnalysis, 10) \
  X(rtMovement_SalesReturns_ItemAnalysis, 11) \
  X(rtMovement_SalesReturns_LedgerDailyAnalysis, 12) \
  X(rtMovement_SalesReturns_ItemDailyAnalysis, 13) \
  X(rtMovement_PurchaseReturns_LedgerAnalysis, 14) \
  X(rtMovement_PurchaseReturns_ItemAnalysis, 15) \
  X(rtMovement_PurchaseReturns_LedgerDailyAnalysis, 16) \
  X(rtMovement_PurchaseReturns_ItemDailyAnalysis, 17) \
  X(rtMovement_SalesReturns_GroupAnalysis, 18) \
  X(rtMovement_SalesReturns_CategoryAnalysis, 19) \
  X(rtMovement_SalesReturns_ClassAnalysis, 20) \
  X(rtMovement_PurchaseReturns_GroupAnalysis, 21) \
  X(rtMovement_PurchaseReturns_CategoryAnalysis, 22) \
  X(rtMovement_PurchaseReturns_ClassAnalysis, 23) \
  X(rtMovement_SalesReturns_GroupDailyAnalysis, 24) \
  X(rtMovement_PurchaseReturns_GroupDailyAnalysis, 25) \
  X(rtCommission_Initial_Employeewise, 26) \
  X(rtCommission_Initial_Itemwise, 27) \
  X(rtCommission_Daily, 28) \
  X(rtColorwise_Initial, 29) \
  X(rtColorwise_Monthly, 30) \
  X(rtColorwise_Daily, 31) \
  X(rtMovement_SalesReturns_ItemRelationAnalysis, 35) \
  X(rtMonthly_Itemwise_WithAvg, 101) \
  X(rtMonthly_Categorywise_WithAvg, 102) \
  X(rtMonthly_Classwise_WithAvg, 103) \
  X(rtMonthly_Godownwise_WithAvg, 104) \
  X(rtMonthly_GodownItemwise_WithAvg, 105) \
  X(rtMonthly_Itemwise_WithFifo, 111) \
  X(rtMonthly_Categorywise_WithFifo, 112) \
  X(rtMonthly_Classwise_WithFifo, 113) \
  X(rtMonthly_Godownwise_WithFifo, 114) \
  X(rtMonthly_GodownItemwise_WithFifo, 115) \
  X(rtMonthly_Itemwise_WithLifo, 116) \
  X(rtMonthly_Categorywise_WithLifo, 117) \
  X(rtMonthly_Classwise_WithLifo, 118) \
  X(rtMonthly_Godownwise_WithLifo, 119) \
  X(rtMonthly_GodownItemwise_WithLifo, 120) \
  X(rtMonthly_Itemwise_WithLastPurchase, 121) \
  X(rtMonthly_Categorywise_WithLastPurchase, 122) \
  X(rtMonthly_Classwise_WithLastPurchase, 123) \
  X(rtMonthly_Godownwise_WithLastPurchase, 124) \
  X(rtMonthly_GodownItemwise_WithLastPurchase, 125) \
  X(rtMonthly_Itemwise_WithLastSale, 126) \
  X(rtMonthly_Categorywise_WithLastSale, 127) \
  X(rtMonthly_Classwise_WithLastSale, 128) \
  X(rtMonthly_Godownwise_WithLastSale, 129) \
  X(rtMonthly_GodownItemwise_WithLastSale, 130) \
  X(rtMonthly_Itemwise_WithStandardCost, 131) \
  X(rtMonthly_Categorywise_WithStandardCost, 132) \
  X(rtMonthly_Classwise_WithStandardCost, 133) \
  X(rtMonthly_Godownwise_WithStandardCost, 134) \
  X(rtMonthly_GodownItemwise_WithStandardCost, 135) \
  X(rtMonthly_Itemwise_WithStandardPrice, 136) \
  X(rtMonthly_Categorywise_WithStandardPrice, 137) \
  X(rtMonthly_Classwise_WithStandardPrice, 138) \
  X(rtMonthly_Godownwise_WithStandardPrice, 139) \
  X(rtMonthly_GodownItemwise_WithStandardPrice, 140) \
  X(rtMonthly_Itemwise_WithSimpleAvg, 141) \
  X(rtMonthly_Categorywise_WithSimpleAvg, 142) \
  X(rtMonthly_Classwise_WithSimpleAvg, 143) \
  X(rtCategorywise_Initial, 200) \
  X(rtAutoSearch, 201) \
  X(rtAutoSearchReceipt, 202) \
  X(rtClaimReport, 203) \
  X(rtBillWiseReport, 204) \
  X(rtMultiplePriceList, 205) \
  X(rtAutoSearchReceiptChild, 206) \
  X(rtBuyerReport, 207) \
  X(rtBuyerReportDaily, 208) \
  X(rtServiceReportRegNo, 209) \
  X(rtRtosalesdet, 210) \
  X(rtServiceReport, 211) \
  X(rtItemwise_DlyBkup, 212) \
  X(rtMechanicLabourReport, 213) \
  X(rtFreeServiceReport, 214) \
  X(rtRtoInsSearch, 215) \
  X(rtFreeServiceReportDaily, 216) \
  X(rtMechanicLabourReportDaily, 217) \
  X(rtHypoReport, 218) \
  X(rtHypoReportDaily, 219) \
  X(rtMovement_LedgerAnalysis, 508) \
  X(rtMovement_GroupAnalysis, 509) \
  X(rtMovement_ItemAnalysis, 512) \
  X(rtMovement_CategoryAnalysis, 513) \
  X(rtMovement_ClassAnalysis, 514) \
  X(rtMovement_LedgerDailyAnalysis, 515) \
  X(rtMovement_ItemDailyAnalysis, 516) \
  X(rtMovement_GroupDailyAnalysis, 517) \
  X(rtMovement_AreaLedgerAnalysis, 25000) \
  X(rtMovement_PurchaseReturns_AreaLedgerAnalysis, 25001) \
  X(rtMovement_SalesReturns_AreaLedgerAnalysis, 25002) \
  X(rtStockDetails_Itemwise_WithAvg, 110001) \
  X(rtStockDetails_Categorywise_WithAvg, 110002) \
  X(rtStockDetails_Classwise_WithAvg, 110003) \
  X(rtStockDetails_Godownwise_WithAvg, 110004) \
  X(rtStockDetails_Itemwise_WithFifoLifo, 110005) \
  X(rtStockDetails_Categorywise_WithFifoLifo, 110006) \
  X(rtStockDetails_Classwise_WithFifoLifo, 110007) \
  X(rtStockDetails_Godownwise_WithFifoLifo, 110008) \
  X(rtStockDetails_Itemwise_WithLastPurchase, 110009) \
  X(rtStockDetails_Categorywise_WithLastPurchase, 110010) \
  X(rtStockDetails_Classwise_WithLastPurchase, 110011) \
  X(rtStockDetails_Godownwise_WithLastPurchase, 110012) \
  X(rtStockDetails_Itemwise_WithLastSale, 110013) \
  X(rtStockDetails_Categorywise_WithLastSale, 110014) \
  X(rtStockDetails_Classwise_WithLastSale, 110015) \
  X(rtStockDetails_Godownwise_WithLastSale, 110016) \
  X(rtStockDetails_Itemwise_WithAvg_Yearly, 110017) \
  X(rtStockDetails_Categorywise_WithAvg_Yearly, 110018) \
  X(rtStockDetails_Classwise_WithAvg_Yearly, 110019) \
  X(rtStockDetails_Godownwise_WithAvg_Yearly, 110020) \
  X(rtStockDetails_Itemwise_WithLastPurchase_Yearly, 110021) \
  X(rtStockDetails_Categorywise_WithLastPurchase_Yearly, 110022) \
  X(rtStockDetails_Classwise_WithLastPurchase_Yearly, 110023) \
  X(rtStockDetails_Godownwise_WithLastPurchase_Yearly, 110024) \
  X(rtStockDetails_Itemwise_WithLastSale_Yearly, 110025) \
  X(rtStockDetails_Categorywise_WithLastSale_Yearly, 110026) \
  X(rtStockDetails_Classwise_WithLastSale_Yearly, 110027) \
  X(rtStockDetails_Godownwise_WithLastSale_Yearly, 110028) \
  X(rtStockDetails_Itemwise_WithStandardCost, 110029) \
  X(rtStockDetails_Categorywise_WithStandardCost, 110030) \
  X(rtStockDetails_Classwise_WithStandardCost, 110031) \
  X(rtStockDetails_Godownwise_WithStandardCost, 110032) \
  X(rtStockDetails_Itemwise_WithStandardPrice, 110033) \
  X(rtStockDetails_Categorywise_WithStandardPrice, 110034) \
  X(rtStockDetails_Classwise_WithStandardPrice, 110035) \
  X(rtStockDetails_Godownwise_WithStandardPrice, 110036) \
  X(rtStockDetails_Itemwise_WithSimpleAvg, 110037) \
  X(rtStockDetails_Categorywise_WithSimpleAvg, 110038) \
  X(rtStockDetails_Classwise_WithSimpleAvg, 110039)
// clang-format on

enum ReportType : std::int32_t {
#define PST_VALUE(name, value) name = (value),
  PST_REPORT_TYPES(PST_VALUE)
#undef PST_VALUE
};

// Every value with its name, by value.
inline constexpr EnumName kReportTypeNames[] = {
#define PST_NAME(name, value) {#name, value},
    PST_REPORT_TYPES(PST_NAME)
#undef PST_NAME
};

#undef PST_REPORT_TYPES

}  // namespace pstolvane1
