#include "stock/RateHunt.h"

namespace pstolvane1 {
namespace {

// A real movement serves all keys of its item; in the place of an opening line each key looks for
// its own.
std::optional<double> RealOrOwnOpening(const ActualRate* found, ItemRates& item,
                                       const GodownBatch& key) {
  if (found && !found->opening) return found->rate;
  return RateIn(item.OpeningOf(key));
}

double LastActual(RateLink link, StockSide side, ItemRates& item, const GodownBatch& key) {
  const ActualRate* found = item.Movement(link, side);
  if (!found) found = item.Opening();
  return found ? RealOrOwnOpening(found, item, key).value_or(0) : 0;
}

StockRates LastPurchase(ItemRates& item, const GodownBatch& key) {
  const auto rate = [&](StockSide side) {
    const double actual = LastActual(RateLink::kMovement, side, item, key);
    if (actual != 0) return actual;
    return RateIn(item.Standard(RateLink::kCost, side)).value_or(0);
  };
  StockRates rates{.opening = rate(StockSide::kOpening), .closing = rate(StockSide::kClosing)};
  if (rates.closing == 0) rates.closing = rates.opening;
  return rates;
}

StockRates LastSale(ItemRates& item, const GodownBatch& key) {
  const auto rate = [&](StockSide side, double otherwise) {
    const double actual = LastActual(RateLink::kOutward, side, item, key);
    if (actual != 0) return actual;
    // The bounds are strict here, unlike those of the sales themselves; that is meant.
    if (const auto* price = item.Standard(RateLink::kBeforePrice, side)) return price->rate;
    if (const auto* cost = item.Standard(RateLink::kBeforeCost, side)) return cost->rate;
    return RateIn(item.Movement(RateLink::kBeforeInward, side)).value_or(otherwise);
  };
  StockRates rates;
  rates.opening = rate(StockSide::kOpening, 0);
  rates.closing = rate(StockSide::kClosing, rates.opening);
  return rates;
}

double StandardCostAt(StockSide side, ItemRates& item, const GodownBatch& key) {
  if (const auto* cost = item.Standard(RateLink::kCost, side)) return cost->rate;
  return RealOrOwnOpening(item.Movement(RateLink::kMovement, side), item, key).value_or(0);
}

double StandardPriceAt(StockSide side, ItemRates& item, const GodownBatch& key) {
  if (const auto* price = item.Standard(RateLink::kPrice, side)) return price->rate;
  if (const auto actual = RealOrOwnOpening(item.Movement(RateLink::kOutward, side), item, key)) {
    return *actual;
  }
  if (const auto* cost = item.Standard(RateLink::kCost, side)) return cost->rate;
  return RateIn(item.Movement(RateLink::kInward, side)).value_or(0);
}

}  // namespace

StockRates HuntRates(enmValuationMethod method, ItemRates& item, const GodownBatch& key) {
  switch (method) {
    case LastPurchaseRate:
      return LastPurchase(item, key);
    case LastSaleRate:
      return LastSale(item, key);
    case standardrate:
      return {.opening = StandardCostAt(StockSide::kOpening, item, key),
              .closing = StandardCostAt(StockSide::kClosing, item, key)};
    default:
      return {.opening = StandardPriceAt(StockSide::kOpening, item, key),
              .closing = StandardPriceAt(StockSide::kClosing, item, key)};
  }
}

}  // namespace pstolvane1
