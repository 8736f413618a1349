// The rates that one item could be valued at, and the last of them by a day. Pure.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <span>
#include <utility>

#include "valuation/Rates.h"
#include "valuation/StockPeriod.h"

namespace pstolvane1 {

// A stock key within its item.
struct GodownBatch {
  std::int64_t godown_id = 0, batch_id = 0;
  friend auto operator<=>(const GodownBatch&, const GodownBatch&) = default;
};

// What the hunts look for. For the opening, movements stand before the first day and standards
// begin before it; for the closing, movements stand up to the last day and standards end by it.
// The ones of kBefore... stand or end before the last day.
enum class RateLink : std::size_t {
  kMovement,  // whatever its sense
  kOutward,
  kInward,
  kBeforeInward,
  kCost,
  kPrice,
  kBeforeCost,
  kBeforePrice,
};
inline constexpr std::size_t kRateLinks = 8;

// The rows come in the order of their rowsets, of which the last counts. They outlive this. Each
// link is sought once for all keys of the item.
class ItemRates {
 public:
  ItemRates(std::span<const ActualRate> actual, std::span<const StandardRate> standard,
            const StockPeriod& period)
      : actual_(actual), standard_(standard), period_(period) {}

  // The last movement of a link up to the side's day, nullptr where there is none.
  [[nodiscard]] const ActualRate* Movement(RateLink link, StockSide side);
  [[nodiscard]] const StandardRate* Standard(RateLink link, StockSide side);
  // The last opening line of the item, and of one key.
  [[nodiscard]] const ActualRate* Opening();
  [[nodiscard]] const ActualRate* OpeningOf(const GodownBatch& key);

  // The closing rate that a hunt found for one key and keeps for all that follow; 0 before.
  double kept_closing = 0;

 private:
  template <typename Rate>
  using Found = std::array<std::array<std::optional<const Rate*>, kRateLinks>, 2>;

  [[nodiscard]] bool Meets(const ActualRate& rate, RateLink link, StockSide side) const;
  [[nodiscard]] bool Meets(const StandardRate& rate, RateLink link, StockSide side) const;
  template <typename Rate>
  const Rate* Seek(Found<Rate>& found, std::span<const Rate> rates, RateLink link, StockSide side);
  void ReadOpenings();

  std::span<const ActualRate> actual_;
  std::span<const StandardRate> standard_;
  StockPeriod period_;
  Found<ActualRate> movements_;
  Found<StandardRate> standards_;
  bool openings_read_ = false;
  const ActualRate* opening_ = nullptr;
  std::map<GodownBatch, const ActualRate*> openings_;
};

// The rate of a row, nothing where there is none.
template <typename Rate>
[[nodiscard]] std::optional<double> RateIn(const Rate* row) {
  return row ? std::optional(row->rate) : std::nullopt;
}

}  // namespace pstolvane1
