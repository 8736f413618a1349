// Stock at a rate that is hunted for: that of the last purchase or the last sale, the standard cost
// or the standard price.
#pragma once

#include "session/Launch.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// The four methods are one; the method in the arguments, and then in the module, tells them apart.
[[nodiscard]] SourceQueries StockDetails_Item_HuntedRate(const modStolvane1& module,
                                                         const StockArguments& arguments);
[[nodiscard]] SourceQueries StockDetails_Group_HuntedRate(const modStolvane1& module,
                                                          const StockArguments& arguments);
[[nodiscard]] RecordsetPtr mStock_HuntedRate(ReportFrame& frame);
[[nodiscard]] RecordsetPtr mStockGroup_HuntedRate(ReportFrame& frame);

inline constexpr auto* StockDetails_Item_LastPurchase = &StockDetails_Item_HuntedRate;
inline constexpr auto* StockDetails_Item_LastSale = &StockDetails_Item_HuntedRate;
inline constexpr auto* StockDetails_Item_StdCost = &StockDetails_Item_HuntedRate;
inline constexpr auto* StockDetails_Item_StdPrice = &StockDetails_Item_HuntedRate;
inline constexpr auto* StockDetails_Group_LastPurchase = &StockDetails_Group_HuntedRate;
inline constexpr auto* StockDetails_Group_LastSale = &StockDetails_Group_HuntedRate;
inline constexpr auto* StockDetails_Group_StdCost = &StockDetails_Group_HuntedRate;
inline constexpr auto* StockDetails_Group_StdPrice = &StockDetails_Group_HuntedRate;
inline constexpr auto* mStock_LastPurchase = &mStock_HuntedRate;
inline constexpr auto* mStock_LastSale = &mStock_HuntedRate;
inline constexpr auto* mStock_StdCost = &mStock_HuntedRate;
inline constexpr auto* mStock_StdPrice = &mStock_HuntedRate;
inline constexpr auto* mStockGroup_LastPurchase = &mStockGroup_HuntedRate;
inline constexpr auto* mStockGroup_LastSale = &mStockGroup_HuntedRate;
inline constexpr auto* mStockGroup_StdCost = &mStockGroup_HuntedRate;
inline constexpr auto* mStockGroup_StdPrice = &mStockGroup_HuntedRate;

}  // namespace pstolvane1
