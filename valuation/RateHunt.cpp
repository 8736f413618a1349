#include "valuation/RateHunt.h"

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

// A real movement's closing rate serves all keys as the first of them found it, also where that
// took its own opening rate for want of another; that is meant.
template <typename Seek>
double ClosingForAllKeys(RateLink link, ItemRates& item, Seek&& seek) {
  if (item.kept_closing != 0) return item.kept_closing;
  const double rate = seek();
  const ActualRate* found = item.Movement(link, StockSide::kClosing);
  if (found && !found->opening) item.kept_closing = rate;
  return rate;
}

StockRates LastPurchase(ItemRates& item, const GodownBatch& key) {
  const auto rate = [&](StockSide side) {
    const double actual = LastActual(RateLink::kMovement, side, item, key);
    if (actual != 0) return actual;
    return RateIn(item.Standard(RateLink::kCost, side)).value_or(0);
  };
  const double opening = rate(StockSide::kOpening);
  const double closing = ClosingForAllKeys(RateLink::kMovement, item, [&] {
    const double found = rate(StockSide::kClosing);
    return found != 0 ? found : opening;
  });
  return {.opening = opening, .closing = closing};
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
  const double opening = rate(StockSide::kOpening, 0);
  const double closing = ClosingForAllKeys(RateLink::kOutward, item,
                                           [&] { return rate(StockSide::kClosing, opening); });
  return {.opening = opening, .closing = closing};
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

StockFigures ValueAtRates(const KeyQuantities& quantities, const StockRates& rates) {
  const float opening = ToSingle(quantities.opening);
  const float closing =
      ToSingle(static_cast<double>(opening) + static_cast<double>(quantities.inwards.quantity) -
               static_cast<double>(quantities.outwards.quantity));
  return {.opening = {opening, ValueAt(quantities.opening, rates.opening)},
          .inwards = quantities.inwards,
          .outwards = quantities.outwards,
          .closing = {closing, ValueAt(quantities.closing, rates.closing)}};
}

}  // namespace pstolvane1
