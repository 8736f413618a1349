// The hunts for the rate that a stock key is valued at. Pure.
#pragma once

#include "session/enmValuationMethod.h"
#include "valuation/ItemRates.h"
#include "valuation/StockFigures.h"

namespace pstolvane1 {

// Opening and closing rate, 0 where no rate reaches the key.
struct StockRates {
  double opening = 0, closing = 0;
};

// LastPurchaseRate: the item's last movement by the day, else the key's last opening line; where
// that is none or 0 the last standard cost; and for a closing that still has none the opening rate.
// A closing rate of a movement is kept in the item for the keys that follow; so it is for the last
// sale.
// LastSaleRate: the last outward movement, else the key's last opening line; where that is none or
// 0 the first found of the last standard price, the last standard cost and the last inward
// movement, all three strictly before the day; and where none is found the opening rate.
// standardrate: the last standard cost; else the last movement, and in the place of an opening line
// that of the key.
// StandardPrice: the last standard price; else the last outward movement, and in the place of an
// opening line that of the key; else the last standard cost; else the last inward movement.
[[nodiscard]] StockRates HuntRates(enmValuationMethod method, ItemRates& item,
                                   const GodownBatch& key);

// What the books tell of a key: quantities, and the values of what came and went. The closing is
// the opening with what came and without what went.
struct KeyQuantities {
  double opening = 0, closing = 0;
  StockFigure inwards = {}, outwards = {};
};

// The opening and closing quantities at their rates. What is shown is reckoned of singles, in which
// stock that is sold out comes to 0; what is valued, of the quantities as they are read, which have
// more figures.
[[nodiscard]] StockFigures ValueAtRates(const KeyQuantities& quantities, const StockRates& rates);

}  // namespace pstolvane1
