#include "valuation/ItemRates.h"

namespace pstolvane1 {

bool ItemRates::Meets(const ActualRate& rate, RateLink link, StockSide side) const {
  if (!rate.date) return false;
  const bool inward = link == RateLink::kInward || link == RateLink::kBeforeInward;
  if (inward && rate.added != true) return false;
  if (link == RateLink::kOutward && rate.added != false) return false;
  if (side == StockSide::kOpening) return *rate.date < period_.from;
  return link == RateLink::kBeforeInward ? *rate.date < period_.to : *rate.date <= period_.to;
}

bool ItemRates::Meets(const StandardRate& rate, RateLink link, StockSide side) const {
  const bool price = link == RateLink::kPrice || link == RateLink::kBeforePrice;
  if (rate.sale != price) return false;
  if (side == StockSide::kOpening) return rate.from < period_.from;
  const bool before = link == RateLink::kBeforeCost || link == RateLink::kBeforePrice;
  return before ? rate.to < period_.to : rate.to <= period_.to;
}

template <typename Rate>
const Rate* ItemRates::Seek(Found<Rate>& found, std::span<const Rate> rates, RateLink link,
                            StockSide side) {
  std::optional<const Rate*>& slot =
      found.at(static_cast<std::size_t>(side)).at(static_cast<std::size_t>(link));
  if (!slot) {
    slot = LastRate(rates, [&](const Rate& rate) { return Meets(rate, link, side); });
  }
  return *slot;
}

const ActualRate* ItemRates::Movement(RateLink link, StockSide side) {
  return Seek(movements_, actual_, link, side);
}

const StandardRate* ItemRates::Standard(RateLink link, StockSide side) {
  return Seek(standards_, standard_, link, side);
}

const ActualRate* ItemRates::Opening() {
  ReadOpenings();
  return opening_;
}

const ActualRate* ItemRates::OpeningOf(const GodownBatch& key) {
  ReadOpenings();
  const auto found = openings_.find(key);
  return found == openings_.end() ? nullptr : found->second;
}

void ItemRates::ReadOpenings() {
  if (openings_read_) return;
  openings_read_ = true;
  for (const ActualRate& rate : actual_) {
    if (!rate.opening) continue;
    opening_ = &rate;
    openings_[{rate.godown_id, rate.batch_id}] = &rate;
  }
}

}  // namespace pstolvane1
